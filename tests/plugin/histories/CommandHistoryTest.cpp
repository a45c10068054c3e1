// Long random sequences of all commands on labels and borders, with undo, redo, transactions and failures, against a
// plain model: after every step the drawing is what the model says, and every command answered what the model would.
#include "support/PluginTest.h"

#include <random>

#include "DbHostAppServices.h"
#include "DrawingBorderData.h"
#include "DrawingModel.h"
#include "objects/ParamsDrawingBorder.h"

using namespace plugintest;

namespace historytest
{
namespace
{

std::string utf8(const OdString& text)
{
    return odStringToUtf8(text);
}

OdString wide(const std::string& text)
{
    return odUtf8ToString(text);
}

bool comesBefore(const std::string& first, const std::string& second)
{
    return wide(first).iCompare(wide(second)) < 0;
}

class CommandHistoryTest : public PluginTest, public ::testing::WithParamInterface<unsigned>
{
protected:
    static constexpr std::size_t kEntities = 9;
    static constexpr int kSteps = 1500;

    CommandHistoryTest() : m_random(GetParam())
    {
        static OdDbHostAppServices services;
        db->setAppServices(&services);
        for (const OdDbObjectId& line : addLines(kEntities))
            m_entities.push_back(line);
        // What runs without undo by design comes first.
        run(L"REGISTERCUSTOMAPPLICATION", OdResBuf::newRb(5005, L"NAME"));
        m_labelDictionary = run(L"BSYSTEMLABELGETDICTIONARYID").id();
        m_borderDictionary = run(L"DRAWINGBORDERGETDICTIONARYID").id();
        db->clearUndo();
        m_start.entities.resize(kEntities);
        m_history = ModelHistory(m_start);
    }

    unsigned below(unsigned bound) { return std::uniform_int_distribution<unsigned>(0, bound - 1)(m_random); }
    bool oneIn(unsigned bound) { return below(bound) == 0; }
    const Model& model() const { return m_history.present(); }

    // ---- The drawing as it is

    Model actual()
    {
        Model found;
        for (const OdDbObjectId& id : m_entities)
            found.entities.push_back(entityOf(id));
        for (std::size_t i = 0; i < m_labels.size(); ++i)
            if (const CBSystemLabelPtr label = CBSystemLabel::cast(m_labels[i].openObject(OdDb::kForRead, true)))
                found.labels[static_cast<int>(i)] = labelOf(*label);
        for (std::size_t i = 0; i < m_borders.size(); ++i)
            if (const auto border = CDrawingBorderData::cast(m_borders[i].openObject(OdDb::kForRead, true)))
                found.borders[static_cast<int>(i)] = borderOf(*border);
        return found;
    }

    Entity entityOf(const OdDbObjectId& id)
    {
        Entity entity;
        const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForRead, true);
        entity.isErased = object->isErased();
        if (const CZolExtendedDataPtr data = CZolExtendedData::Get(id, false, true))
            entity.mark = Mark{data->IsCustomLabel(), utf8(data->GetGuid()), utf8(data->GetName())};
        for (const OdDbObjectId& listener : object->getPersistentReactors())
            entity.listeners.push_back(numberOf(listener, m_labels));
        return entity;
    }

    Label labelOf(const CBSystemLabel& label)
    {
        Label found{utf8(label.GetGuid()), utf8(label.GetLabel()), {}, label.isErased(), false};
        OdDbObjectIdArray ids;
        label.GetReferencedObjectIds(ids);
        for (const OdDbObjectId& id : ids)
            found.entities.push_back(numberOf(id, m_entities));
        const OdString key = CBSystemLabel::GetDictionary(db)->nameAt(label.objectId());
        found.isInDictionary = !key.isEmpty();
        EXPECT_TRUE(key.isEmpty() || key == label.GetGuid());
        return found;
    }

    Border borderOf(const CDrawingBorderData& border)
    {
        const auto [first, second] = border.GetCorners();
        return {utf8(CDrawingBorderData::GetDictionary(db)->nameAt(border.objectId())),
                border.isErased(),
                border.IsDeleted(),
                border.AreColumnLinesValid(),
                texts(border.GetColumnIds()),
                texts(border.GetLineIds()),
                border.AreCornersValid(),
                {first.x, first.y, first.z, second.x, second.y, second.z}};
    }

    static std::vector<std::string> texts(const OdStringArray& strings)
    {
        std::vector<std::string> all;
        for (const OdString& text : strings)
            all.push_back(utf8(text));
        return all;
    }

    /// What GETDRAWINGBORDER answers for a border.
    static std::string jsonOf(const Border& border)
    {
        CParamsDrawingBorder params;
        params.m_bColumnLinesValid = border.areListsValid;
        for (const std::string& column : border.columns)
            params.m_columns.append(wide(column));
        for (const std::string& line : border.lines)
            params.m_lines.append(wide(line));
        params.m_bAreaValid = border.isAreaValid;
        params.m_areaFirst.set(border.area[0], border.area[1], border.area[2]);
        params.m_areaSecond.set(border.area[3], border.area[4], border.area[5]);
        return utf8(params.Write());
    }

    static int numberOf(const OdDbObjectId& id, const std::vector<OdDbObjectId>& ids)
    {
        return static_cast<int>(std::find(ids.begin(), ids.end(), id) - ids.begin());
    }

    // ---- Answers as the model gives them

    std::vector<OdDbObjectId> labelsByGuid(bool allowDeleted)
    {
        std::vector<int> numbers;
        for (const auto& [number, label] : model().labels)
            if (label.isInDictionary && (allowDeleted || !label.isErased))
                numbers.push_back(number);
        std::sort(numbers.begin(), numbers.end(),
                  [&](int first, int second)
                  { return comesBefore(model().labels.at(first).guid, model().labels.at(second).guid); });
        std::vector<OdDbObjectId> ids;
        for (const int number : numbers)
            ids.push_back(m_labels[static_cast<std::size_t>(number)]);
        return ids;
    }

    std::vector<int> bordersListed(bool allowDeleted)
    {
        std::vector<int> numbers;
        for (const auto& [number, border] : model().borders)
            if (!border.isErased && (allowDeleted || !border.isMarkedDeleted))
                numbers.push_back(number);
        return numbers;
    }

    // ---- Random choices

    std::vector<int> someEntities()
    {
        std::vector<int> some;
        for (unsigned left = 1 + below(4); left > 0; --left)
            some.push_back(static_cast<int>(below(kEntities)));
        return some;
    }
    /// A label of the present state, erased or not; -1 when there is none.
    int someLabel()
    {
        if (model().labels.empty())
            return -1;
        return std::next(model().labels.begin(), below(static_cast<unsigned>(model().labels.size())))->first;
    }
    int someBorder()
    {
        if (model().borders.empty())
            return -1;
        return std::next(model().borders.begin(), below(static_cast<unsigned>(model().borders.size())))->first;
    }
    OdDbObjectId idOfLabel(int number) { return m_labels[static_cast<std::size_t>(number)]; }

    std::vector<OdDbObjectId> idsOf(const std::vector<int>& entities) const
    {
        std::vector<OdDbObjectId> all;
        for (const int entity : entities)
            all.push_back(m_entities[static_cast<std::size_t>(entity)]);
        return all;
    }

    // ---- Steps

    void step()
    {
        using Step = void (CommandHistoryTest::*)();
        static constexpr Step kChanges[] = {
            &CommandHistoryTest::create,       &CommandHistoryTest::create,       &CommandHistoryTest::create,
            &CommandHistoryTest::deleteLabels, &CommandHistoryTest::eraseEntity,  &CommandHistoryTest::eraseLabel,
            &CommandHistoryTest::defineLists,  &CommandHistoryTest::defineArea,   &CommandHistoryTest::markBorder,
            &CommandHistoryTest::eraseBorder,  &CommandHistoryTest::renameBorder, &CommandHistoryTest::undo,
            &CommandHistoryTest::undo,         &CommandHistoryTest::redo,         &CommandHistoryTest::transaction,
            &CommandHistoryTest::renameLabel,  &CommandHistoryTest::relabel,      &CommandHistoryTest::refer,
            &CommandHistoryTest::referToLess,  &CommandHistoryTest::forceInvalid, &CommandHistoryTest::lookAtLabels,
            &CommandHistoryTest::query,        &CommandHistoryTest::query,
        };
        (this->*kChanges[below(std::size(kChanges))])();
    }

    void create()
    {
        const std::vector<int> asked = someEntities();
        std::vector<OdDbObjectId> given = idsOf(asked);
        if (oneIn(4))
            given.insert(given.begin(), OdDbObjectId());
        const std::string text = "text " + std::to_string(below(4));
        const bool fails = oneIn(6);
        HostCommands& commands = HostCommands::get();
        commands.parsedText = wide(text).c_str();
        commands.whileParsing = fails ? [] { throw OdError(eInvalidInput); } : std::function<void()>();
        const bool bySelection = oneIn(2);
        const Outcome outcome = bySelection ? createFromSelection(given) : run(L"BSYSTEMLABELCREATE", ids(given));

        const std::vector<int> taken = model().eligible(asked);
        const bool takesErased =
            std::any_of(taken.begin(), taken.end(),
                        [&](int entity) { return model().entities[static_cast<std::size_t>(entity)].isErased; });
        if (taken.empty())
        {
            EXPECT_EQ(outcome.fault, Fault());
            EXPECT_TRUE(outcome.id().isNull());
            return;
        }
        if (fails || takesErased)
        {
            EXPECT_EQ(outcome.fault.code, fails ? 5 : 20);
            return;
        }
        EXPECT_EQ(outcome.fault, Fault());
        ASSERT_FALSE(outcome.id().isNull());
        m_labels.push_back(outcome.id());
        Model next = model();
        next.addLabel(static_cast<int>(m_labels.size()) - 1, taken, utf8(openLabel(outcome.id())->GetGuid()), text);
        m_history.change(next);
    }

    Outcome createFromSelection(const std::vector<OdDbObjectId>& ids)
    {
        const OdDbSelectionSetPtr selection = OdDbSelectionSet::createObject(db);
        for (const OdDbObjectId& id : ids)
            if (!id.isNull())
                selection->append(id);
        HostCommands::get().selections[L"MINE"] = selection;
        return run(L"BSYSTEMLABELCREATEFROMSELECTION", CadCommands::SetParameterOdString(L"SELECTIONSETNAME", L"MINE"));
    }

    void deleteLabels()
    {
        Model next = model();
        std::vector<OdDbObjectId> given;
        for (unsigned left = below(3); left > 0; --left)
            if (const int number = someLabel(); number >= 0)
            {
                given.push_back(idOfLabel(number));
                next.deleteLabel(number);
            }
        if (oneIn(4))
            given.push_back(OdDbObjectId());
        const bool fails = oneIn(5);
        if (fails)
            given.push_back(m_entities[below(kEntities)]);
        const Outcome outcome = run(L"BSYSTEMLABELDELETE", ids(given));
        EXPECT_EQ(outcome.fault.code, fails ? 39 : 0);
        if (!fails)
            m_history.change(next);
    }

    void eraseEntity()
    {
        const unsigned entity = below(kEntities);
        Model next = model();
        next.entities[entity].isErased = !next.entities[entity].isErased;
        db->startUndoRecord();
        erase(m_entities[entity], next.entities[entity].isErased);
        m_history.change(next);
    }

    void eraseLabel()
    {
        const int number = someLabel();
        if (number < 0)
            return;
        Model next = model();
        const bool erasing = !next.labels[number].isErased;
        next.eraseLabel(number, erasing);
        db->startUndoRecord();
        erase(idOfLabel(number), erasing);
        m_history.change(next);
    }

    /// Changes a label itself, as its class lets it be changed.
    void changeLabel(const std::function<void(CBSystemLabel& label, int number, Model& next)>& change)
    {
        const int number = someLabel();
        if (number < 0 || model().labels.at(number).isErased || !model().labels.at(number).isInDictionary)
            return;
        Model next = model();
        db->startUndoRecord();
        change(*openLabel(idOfLabel(number), OdDb::kForWrite), number, next);
        m_history.change(next);
    }

    void renameLabel()
    {
        changeLabel(
            [this](CBSystemLabel& label, int number, Model& next)
            {
                next.labels[number].guid = "guid " + std::to_string(m_names++);
                label.SetGuid(L" '" + wide(next.labels[number].guid) + L"' ");
            });
    }

    void relabel()
    {
        changeLabel(
            [this](CBSystemLabel& label, int number, Model& next)
            {
                next.labels[number].text = "text " + std::to_string(below(4));
                label.SetLabel(wide(next.labels[number].text));
            });
    }

    void refer()
    {
        changeLabel(
            [this](CBSystemLabel& label, int number, Model& next)
            {
                std::vector<int> asked = someEntities();
                std::erase_if(asked,
                              [&](int entity) { return next.entities[static_cast<std::size_t>(entity)].isErased; });
                next.setReferences(number, asked);
                if (next != model()) // the same once more is a step that changes nothing
                    label.SetReferencedObjectIds(idArray(idsOf(asked)));
            });
    }

    void referToLess()
    {
        changeLabel(
            [this](CBSystemLabel& label, int number, Model& next)
            {
                const unsigned entity = below(kEntities);
                next.removeReference(number, static_cast<int>(entity));
                label.RemoveReferencedObjectId(m_entities[entity]);
            });
    }

    // ---- Borders

    /// Columns and lines of random numbers, perhaps none.
    OdStringArray names(const OdChar* prefix)
    {
        OdStringArray array;
        for (unsigned left = below(3); left > 0; --left)
            array.append(OdString(prefix) + wide(std::to_string(below(3))));
        return array;
    }

    /// What a defining command leaves: the first border changed so, or a new one.
    void defined(const OdChar* command, const CParamsDrawingBorder& given, const std::function<void(Border&)>& apply)
    {
        const std::vector<int> listed = bordersListed(false);
        const std::vector<OdDbObjectId> before = run(L"DRAWINGBORDERGETALLIDS").ids();
        const Outcome outcome = run(command, CadCommands::SetParameterOdString(L"JSON", given.Write()));
        EXPECT_EQ(outcome.fault, Fault());
        Model next = model();
        int number = listed.empty() ? -1 : listed.front();
        if (number < 0)
        {
            const std::vector<OdDbObjectId> now = run(L"DRAWINGBORDERGETALLIDS").ids();
            ASSERT_EQ(now.size(), before.size() + 1);
            number = static_cast<int>(m_borders.size());
            m_borders.push_back(now.back());
            next.borders[number].guid = utf8(CDrawingBorderData::GetDictionary(db)->nameAt(now.back()));
        }
        apply(next.borders[number]);
        m_history.change(next);
    }

    void defineLists()
    {
        CParamsDrawingBorder given;
        given.m_columns = names(L"c");
        given.m_lines = names(L"l");
        const bool bothFilled = !given.m_columns.isEmpty() && !given.m_lines.isEmpty();
        given.m_bColumnLinesValid = bothFilled && oneIn(2);
        defined(L"DEFINEDRAWINGBORDERCOLUMNLINES", given,
                [&](Border& border)
                {
                    border.columns = texts(given.m_columns);
                    border.lines = texts(given.m_lines);
                    border.areListsValid = border.areListsValid || bothFilled;
                });
    }

    void defineArea()
    {
        CParamsDrawingBorder given;
        given.m_columns = names(L"c");
        given.m_lines = names(L"l");
        given.m_bColumnLinesValid = !given.m_columns.isEmpty() && !given.m_lines.isEmpty() && oneIn(2);
        given.m_bAreaValid = !oneIn(6);
        given.m_areaFirst.set(below(3), below(3), below(3));
        given.m_areaSecond.set(below(3), below(3), below(3));
        if (!given.m_bAreaValid)
        {
            EXPECT_EQ(run(L"DEFINEDRAWINGBORDER", CadCommands::SetParameterOdString(L"JSON", given.Write())).fault.code,
                      925);
            return;
        }
        defined(L"DEFINEDRAWINGBORDER", given,
                [&](Border& border)
                {
                    const OdGePoint3d &a = given.m_areaFirst, &b = given.m_areaSecond;
                    border.area = {std::min(a.x, b.x), std::max(a.y, b.y), std::min(a.z, b.z),
                                   std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.z, b.z)};
                    border.isAreaValid = true;
                    if (!given.m_bColumnLinesValid)
                        return;
                    border.columns = texts(given.m_columns);
                    border.lines = texts(given.m_lines);
                    border.areListsValid = true;
                });
    }

    /// Changes a border itself, as its class lets it be changed.
    void changeBorder(const std::function<void(CDrawingBorderData& border, Border& model)>& change)
    {
        const int number = someBorder();
        if (number < 0)
            return;
        Model next = model();
        db->startUndoRecord();
        change(
            *CDrawingBorderDataPtr(m_borders[static_cast<std::size_t>(number)].safeOpenObject(OdDb::kForWrite, true)),
            next.borders[number]);
        m_history.change(next);
    }

    void markBorder()
    {
        changeBorder(
            [](CDrawingBorderData& border, Border& next)
            {
                next.isMarkedDeleted = !next.isMarkedDeleted;
                border.Delete(next.isMarkedDeleted);
            });
    }

    void forceInvalid()
    {
        changeBorder(
            [this](CDrawingBorderData& border, Border& next)
            {
                const bool isOfLists = oneIn(2);
                (isOfLists ? next.areListsValid : next.isAreaValid) = false;
                isOfLists ? border.ForceColumnLinesInvalid() : border.ForceCornersInvalid();
            });
    }

    void eraseBorder()
    {
        changeBorder(
            [](CDrawingBorderData& border, Border& next)
            {
                next.isErased = !next.isErased;
                border.erase(next.isErased);
            });
    }

    void renameBorder()
    {
        changeBorder(
            [this](CDrawingBorderData& border, Border& next)
            {
                if (next.isErased)
                    return;
                next.guid = "guid " + std::to_string(m_names++);
                border.setGuid(L" '" + wide(next.guid) + L"' ");
            });
    }

    // ---- History

    void undo()
    {
        if (m_history.openTransactions() > 0)
        {
            EXPECT_EQ(thrownBy([&] { db->undo(); }).code, eUndoOperationNotAvailable);
            return;
        }
        db->undo();
        m_history.undo();
    }

    void redo()
    {
        if (m_history.openTransactions() > 0)
            return;
        db->redo();
        m_history.redo();
    }

    void transaction()
    {
        const std::size_t open = m_history.openTransactions();
        if (open == 0 || (open < 3 && oneIn(3)))
        {
            run(L"TRANSACTIONSTART");
            m_history.startTransaction();
            return;
        }
        const bool aborts = oneIn(2);
        run(aborts ? L"TRANSACTIONABORT" : L"TRANSACTIONEND");
        aborts ? m_history.abortTransaction() : m_history.endTransaction();
    }

    // ---- Looking

    void lookAtLabels()
    {
        HostCommands& commands = HostCommands::get();
        commands.viewerCalls.clear();
        commands.viewerAnswer =
            oneIn(3) ? OdResBufPtr()
                     : CadCommands::SetParameterOdGeExtents3d(L"EXTENTS", OdGeExtents3d({0, 0, 0}, {1, 1, 1}));
        const std::size_t answered = commands.viewerAnswer ? 2 : 1;
        const int number = someLabel();
        const Outcome outcome =
            run(oneIn(2) ? L"BSYSTEMLABELZOOM" : L"BSYSTEMLABELDOLLY", number < 0 ? ids({}) : ids({idOfLabel(number)}));
        EXPECT_EQ(outcome.fault, Fault());
        EXPECT_EQ(commands.viewerCalls.size(), number < 0 ? 0 : answered);
    }

    void query()
    {
        const bool allowDeleted = oneIn(2);
        const auto parameters = [&](const OdChar* name, const OdString& value)
        {
            return chain({CadCommands::SetParameterBool(L"ALLOWDELETED", allowDeleted),
                          CadCommands::SetParameterOdString(name, value)});
        };
        const std::vector<OdDbObjectId> listed = labelsByGuid(allowDeleted);
        EXPECT_EQ(run(L"BSYSTEMLABELGETALLIDS", CadCommands::SetParameterBool(L"ALLOWDELETED", allowDeleted)).ids(),
                  listed);
        std::string names;
        for (const OdDbObjectId& id : listed)
            names += (names.empty() ? "\"" : ",\"") + model().labels.at(numberOf(id, m_labels)).text + "\"";
        EXPECT_EQ(run(L"BSYSTEMLABELGETALLNAMES", CadCommands::SetParameterBool(L"ALLOWDELETED", allowDeleted)).json(),
                  "[" + names + "]");
        EXPECT_EQ(run(L"BSYSTEMLABELGETDICTIONARYID").id(), m_labelDictionary);
        EXPECT_EQ(run(L"DRAWINGBORDERGETDICTIONARYID").id(), m_borderDictionary);
        const OdDbSelectionSetPtr selection = OdDbSelectionSet::createObject(db);
        selection->append(m_entities.front());
        std::vector<OdDbObjectId> selected;
        for (const auto& [number, label] : model().labels)
        {
            selection->append(idOfLabel(number));
            if (allowDeleted || !label.isErased)
                selected.push_back(idOfLabel(number));
        }
        HostCommands::get().selections[L"SOME"] = selection;
        EXPECT_EQ(run(L"BSYSTEMLABELGETSELECTEDIDS", parameters(L"SELECTIONSETNAME", L"SOME")).ids(), selected);
        queryBorders(allowDeleted);
        const int number = someLabel();
        if (number < 0)
            return;
        const Label& label = model().labels.at(number);
        const bool isListed = label.isInDictionary && (allowDeleted || !label.isErased);
        EXPECT_EQ(run(L"BSYSTEMLABELGETIDFROMGUID", parameters(L"GUID", wide(label.guid))).id(),
                  isListed ? idOfLabel(number) : OdDbObjectId());
        EXPECT_EQ(
            run(L"BSYSTEMLABELGETIDFROMHANDLE", parameters(L"HANDLE", idOfLabel(number).getHandle().ascii())).id(),
            allowDeleted || !label.isErased ? idOfLabel(number) : OdDbObjectId());
        const auto named = std::find_if(listed.begin(), listed.end(),
                                        [&](const OdDbObjectId& id)
                                        { return model().labels.at(numberOf(id, m_labels)).text == label.text; });
        EXPECT_EQ(run(L"BSYSTEMLABELGETIDFROMNAME", parameters(L"NAME", wide(label.text))).id(),
                  named == listed.end() ? OdDbObjectId() : *named);
        const std::string json = run(L"BSYSTEMLABELTOJSON", ids({idOfLabel(number)})).json();
        EXPECT_EQ(json == "[]", label.isErased) << json;
        EXPECT_EQ(json.find("\"" + label.guid + "\"") != std::string::npos, !label.isErased) << json;
    }

    void queryBorders(bool allowDeleted)
    {
        const OdResBufPtr parameters = CadCommands::SetParameterBool(L"ALLOWDELETED", allowDeleted);
        const std::vector<int> listed = bordersListed(allowDeleted);
        std::vector<OdDbObjectId> ids;
        for (const int number : listed)
            ids.push_back(m_borders[static_cast<std::size_t>(number)]);
        EXPECT_EQ(run(L"DRAWINGBORDERGETALLIDS", parameters).ids(), ids);
        const std::string json = run(L"GETDRAWINGBORDER", parameters).json();
        EXPECT_EQ(json, jsonOf(listed.empty() ? Border() : model().borders.at(listed.front())));
    }

    void expectAgreement(int step)
    {
        ASSERT_EQ(describe(actual()), describe(model())) << step;
        ASSERT_EQ(db->numActiveTransactions(), static_cast<int>(m_history.openTransactions())) << step;
        if (m_history.openTransactions() == 0)
        {
            ASSERT_EQ(db->hasUndo(), m_history.canUndo()) << step;
            ASSERT_EQ(db->hasRedo(), m_history.canRedo()) << step;
        }
    }

    std::mt19937 m_random;
    std::vector<OdDbObjectId> m_entities, m_labels, m_borders;
    OdDbObjectId m_labelDictionary, m_borderDictionary;
    ModelHistory m_history;
    Model m_start;
    int m_names = 0;
};

TEST_P(CommandHistoryTest, IsAsTheModelSays)
{
    for (int i = 0; i < kSteps && !HasFailure(); ++i)
    {
        EXPECT_EQ(thrownBy([&] { step(); }), Fault()) << i;
        expectAgreement(i);
    }
    while (m_history.openTransactions() > 0 && !HasFailure())
    {
        run(L"TRANSACTIONABORT");
        m_history.abortTransaction();
        expectAgreement(kSteps);
    }
    std::size_t steps = 0;
    for (; db->hasUndo() && !HasFailure(); ++steps)
    {
        undo();
        expectAgreement(kSteps);
    }
    EXPECT_GT(steps, 50u);
    EXPECT_EQ(describe(model()), describe(m_start));
    while (db->hasRedo() && !HasFailure())
    {
        redo();
        expectAgreement(kSteps);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, CommandHistoryTest, ::testing::Range(1u, 11u));

} // namespace
} // namespace historytest
