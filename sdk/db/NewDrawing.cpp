// What every drawing has, made for a new one: tables with their first records, the spaces of model and paper, the
// dictionary of named objects, layouts, styles. What is there already stays, so the same steps complete a drawing.
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbDimStyleTable.h"
#include "DbDimStyleTableRecord.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLayout.h"
#include "DbLinetypeTable.h"
#include "DbLinetypeTableRecord.h"
#include "DbRegAppTable.h"
#include "DbRegAppTableRecord.h"
#include "DbTextStyleTable.h"
#include "DbTextStyleTableRecord.h"
#include "DbUCSTable.h"
#include "DbViewTable.h"
#include "DbViewportTable.h"
#include "DbViewportTableRecord.h"
#include "HeaderVariables.h"
#include "ObjectCore.h"
#include "Proxies.h"

namespace
{

using oddb::DatabaseImpl;
using oddb::GroupsBuilder;
using oddb::ObjectCore;
using oddb::SymbolTable;

/// Making a drawing leaves nothing to undo.
class WithoutUndo
{
public:
    explicit WithoutUndo(OdDbDatabase& database) : m_database(database), m_before(database.undoRecordingDisabled())
    {
        m_database.disableUndoRecording(true);
    }
    ~WithoutUndo() { m_database.disableUndoRecording(m_before); }
    WithoutUndo(const WithoutUndo&) = delete;
    WithoutUndo& operator=(const WithoutUndo&) = delete;

private:
    OdDbDatabase& m_database;
    bool m_before;
};

class DrawingMaker
{
public:
    explicit DrawingMaker(OdDbDatabase& database) : m_database(database), m_impl(database.impl()) {}

    void make()
    {
        declareClasses();
        makeTables();
        makeNamedObjects();
        makeRecords();
        makeSpaces();
        makeStyles();
        makeLayout(m_impl.modelSpace, L"Model", 0);
        makeLayout(m_impl.paperSpace, L"Layout1", 1);
    }

private:
    /// Files declare the classes that came with later versions.
    void declareClasses()
    {
        struct Declared
        {
            const char* dxfName;
            const char* className;
        };
        for (const Declared& declared :
             {Declared{"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
              Declared{"ACDBPLACEHOLDER", "AcDbPlaceHolder"}, Declared{"LAYOUT", "AcDbLayout"}})
        {
            if (m_impl.fileClass(declared.dxfName))
                continue;
            auto made = std::make_unique<oddb::FileClass>();
            made->dxfName = declared.dxfName;
            made->className = declared.className;
            made->application = "ObjectDBX Classes";
            m_impl.fileClasses.push_back(std::move(made));
        }
    }

    // ---- Tables ----------------------------------------------------------------------------------------------------

    template<class Table>
    void makeTable(SymbolTable kind)
    {
        OdDbStub*& place = m_impl.tables[static_cast<std::size_t>(kind)];
        if (!place)
            place = m_database.addOdDbObject(Table::createObject());
    }

    void makeTables()
    {
        makeTable<OdDbBlockTable>(SymbolTable::Block);
        makeTable<OdDbLayerTable>(SymbolTable::Layer);
        makeTable<OdDbTextStyleTable>(SymbolTable::TextStyle);
        makeTable<OdDbLinetypeTable>(SymbolTable::Linetype);
        makeTable<OdDbViewTable>(SymbolTable::View);
        makeTable<OdDbUCSTable>(SymbolTable::Ucs);
        makeTable<OdDbViewportTable>(SymbolTable::Viewport);
        makeTable<OdDbRegAppTable>(SymbolTable::RegApp);
        makeTable<OdDbDimStyleTable>(SymbolTable::DimStyle);
    }

    OdDbSymbolTablePtr openTable(SymbolTable kind) const
    {
        const OdDbObjectId id(m_impl.tables[static_cast<std::size_t>(kind)]);
        return OdDbSymbolTablePtr(id.safeOpenObject(OdDb::kForWrite));
    }

    /// The record of the name, open for write when it is made here, else null.
    template<class Record>
    OdSmartPtr<Record> addMissing(SymbolTable kind, const OdChar* name)
    {
        OdDbSymbolTablePtr table = openTable(kind);
        if (table->has(OdString(name)))
            return {};
        OdSmartPtr<Record> record = Record::createObject();
        record->setName(name);
        table->add(record);
        return record;
    }

    void makeRecords()
    {
        addMissing<OdDbRegAppTableRecord>(SymbolTable::RegApp, L"ACAD");
        addMissing<OdDbLinetypeTableRecord>(SymbolTable::Linetype, L"ByBlock");
        addMissing<OdDbLinetypeTableRecord>(SymbolTable::Linetype, L"ByLayer");
        if (auto continuous = addMissing<OdDbLinetypeTableRecord>(SymbolTable::Linetype, L"Continuous");
            !continuous.isNull())
            continuous->setComments(L"Solid line");
        if (auto layer = addMissing<OdDbLayerTableRecord>(SymbolTable::Layer, L"0"); !layer.isNull())
            layer->setLinetypeObjectId(oddb::findSymbol(m_database, SymbolTable::Linetype, "Continuous"));
        if (auto style = addMissing<OdDbTextStyleTableRecord>(SymbolTable::TextStyle, L"Standard"); !style.isNull())
            style->setFileName(L"txt");
        addMissing<OdDbDimStyleTableRecord>(SymbolTable::DimStyle, L"Standard");
        if (auto view = addMissing<OdDbViewportTableRecord>(SymbolTable::Viewport, L"*Active"); !view.isNull())
        {
            view->setCenterPoint(OdGePoint2d(210.0, 148.5));
            view->setHeight(297.0);
        }
    }

    void makeSpaces()
    {
        makeSpace(m_impl.modelSpace, L"*Model_Space", "*Model_Space");
        makeSpace(m_impl.paperSpace, L"*Paper_Space", "*Paper_Space");
    }

    void makeSpace(OdDbStub*& place, const OdChar* name, std::string_view utf8Name)
    {
        addMissing<OdDbBlockTableRecord>(SymbolTable::Block, name);
        if (!place)
            place = oddb::findSymbol(m_database, SymbolTable::Block, utf8Name);
    }

    // ---- Dictionaries ----------------------------------------------------------------------------------------------

    void makeNamedObjects()
    {
        if (!m_impl.namedObjects)
            m_impl.namedObjects = m_database.addOdDbObject(OdDbDictionary::createObject());
        for (const OdChar* name : {L"ACAD_GROUP", L"ACAD_LAYOUT", L"ACAD_MLINESTYLE", L"ACAD_PLOTSETTINGS"})
            dictionary(name);
    }

    /// The dictionary of that name below the root, made when it is missing, open for write.
    OdDbDictionaryPtr dictionary(const OdChar* name)
    {
        OdDbDictionaryPtr root(OdDbObjectId(m_impl.namedObjects).safeOpenObject(OdDb::kForWrite));
        OdDbDictionaryPtr found = OdDbDictionary::cast(root->getAt(name, OdDb::kForWrite));
        if (!found.isNull())
            return found;
        found = OdDbDictionary::createObject();
        root->setAt(name, found);
        return found;
    }

    // ---- Styles ----------------------------------------------------------------------------------------------------

    void makeStyles()
    {
        const OdDbDictionaryPtr multilines = dictionary(L"ACAD_MLINESTYLE");
        if (!multilines->has(OdString(L"Standard")))
            multilines->setAt(L"Standard", makeMultilineStyle());
        const OdDbObjectId plotStyle = makePlotStyles();
        const OdDbObjectPtr layer =
            OdDbObjectId(oddb::findSymbol(m_database, SymbolTable::Layer, "0")).safeOpenObject(OdDb::kForWrite);
        giveId(*layer, "LAYER", "AcDbLayerTableRecord", 390, plotStyle);
    }

    OdDbObjectPtr makeMultilineStyle()
    {
        OdDbObjectPtr style = oddb::makeProxy(m_impl, "MLINESTYLE", false);
        GroupsBuilder groups;
        groups.text(100, "AcDbMlineStyle").text(2, "STANDARD").integer(70, 0).text(3, "").integer(62, 256);
        groups.real(51, 90.0).real(52, 90.0).integer(71, 2);
        for (const double offset : {0.5, -0.5})
            groups.real(49, offset).integer(62, 256).text(6, "BYLAYER");
        ObjectCore::putGroups(*style, groups.finish());
        return style;
    }

    OdDbObjectId makePlotStyles()
    {
        OdDbDictionaryPtr root(OdDbObjectId(m_impl.namedObjects).safeOpenObject(OdDb::kForWrite));
        OdDbDictionaryPtr styles = OdDbDictionary::cast(root->getAt(L"ACAD_PLOTSTYLENAME", OdDb::kForWrite));
        if (styles.isNull())
        {
            styles = OdDbDictionaryWithDefault::createObject();
            root->setAt(L"ACAD_PLOTSTYLENAME", styles);
        }
        if (!styles->has(OdString(L"Normal")))
            styles->setAt(L"Normal", oddb::makeProxy(m_impl, "ACDBPLACEHOLDER", false));
        const OdDbObjectId normal = styles->getAt(L"Normal");
        if (OdDbDictionaryWithDefaultPtr withDefault = OdDbDictionaryWithDefault::cast(styles); !withDefault.isNull())
            withDefault->setDefaultId(normal);
        return normal;
    }

    static void giveId(OdDbObject& object, std::string_view dxfName, std::string_view marker, int code,
                       const OdDbObjectId& id)
    {
        const oddb::DxfClass* cls = oddb::findDxfClass(dxfName);
        const oddb::DxfSubclass* subclass = cls ? cls->subclass(marker) : nullptr;
        if (!subclass || ObjectCore::groups(object).find(subclass->atom(), code))
            return;
        ObjectCore::changeGroups(object, oddb::withId(ObjectCore::groups(object), *cls, *subclass, code, id));
    }

    // ---- Layouts ---------------------------------------------------------------------------------------------------

    void makeLayout(OdDbStub* space, const OdChar* name, int tab)
    {
        OdDbBlockTableRecordPtr block(OdDbObjectId(space).safeOpenObject(OdDb::kForWrite));
        if (!block->getLayoutId().isErased())
            return;
        OdDbDictionaryPtr layouts = dictionary(L"ACAD_LAYOUT");
        OdDbLayoutPtr layout = OdDbLayout::cast(layouts->getAt(name, OdDb::kForWrite));
        if (layout.isNull())
        {
            layout = OdDbLayout::createObject();
            layouts->setAt(name, layout);
            layout->setLayoutName(name);
            layout->setTabOrder(tab);
        }
        layout->setBlockTableRecordId(space);
        block->setLayoutId(layout->objectId());
    }

    OdDbDatabase& m_database;
    DatabaseImpl& m_impl;
};

void setImperial(oddb::HeaderVariables& variables)
{
    GroupsBuilder groups;
    variables.put("MEASUREMENT", groups.integer(70, 0).finish());
    variables.put("INSUNITS", groups.integer(70, 1).finish());
    variables.put("LIMMAX", groups.point(10, 12.0, 9.0).finish());
}

} // namespace

void OdDbDatabase::initialize(bool metric)
{
    const WithoutUndo withoutUndo(*this);
    oddb::HeaderVariables& variables = oddb::HeaderVariables::of(impl());
    if (!metric && variables.all().empty())
        setImperial(variables);
    variables.addDefaults();
    DrawingMaker(*this).make();
}
