// What the tests of the plug-in share: the loaded module, a new drawing, a host that answers questions from a list, and
// commands of the host's that the plug-in calls.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "BSystemLabel.h"
#include "CommandHandler.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbLine.h"
#include "DynamicLinker.h"
#include "Ed/EdBaseIO.h"
#include "Ed/EdCommandStack.h"
#include "ModuleErrors.h"
#include "RxInit.h"
#include "RxObjectImpl.h"
#include "ZolExtendedData.h"
#include "framework/CadCommands.h"
#include "module/ground/ModuleName.h"
#include "module/registration/ModuleCad.h"
#include "support/ErrorCode.h"

namespace plugintest
{

// ---- Errors ---------------------------------------------------------------------------------------------------------

/// What an error says of itself; name and function only for the errors of the plug-in.
struct Fault
{
    int code = 0;
    std::string type;
    std::string name;
    std::string function;

    bool operator==(const Fault&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const Fault& fault)
{
    return stream << fault.type << " " << fault.code << " " << fault.name << " in " << fault.function;
}

inline Fault argumentFault(int code, const std::string& name, const std::string& function)
{
    return {code, "OdError_InvalidArgument", name, function};
}

inline Fault valueFault(int code, const std::string& name, const std::string& function)
{
    return {code, "OdError_InvalidValue", name, function};
}

inline Fault faultOf(const OdError& error)
{
    Fault fault{error.code(), odStringToUtf8(error.className()), "", ""};
    if (const CModuleErrorContext* context = CModuleErrorContext::Of(error))
    {
        fault.name = odStringToUtf8(context->GetName());
        fault.function = odStringToUtf8(context->GetFunction());
    }
    return fault;
}

/// The error that work throws, copied as hosts copy errors; a fault of code 0 when it throws none.
inline Fault thrownBy(const std::function<void()>& work)
{
    const OdError error = support::caught(work);
    return error.code() == eOk ? Fault() : faultOf(error);
}

// ---- The host -------------------------------------------------------------------------------------------------------

class Host : public CCommandHandlerCallback
{
public:
    void CommandMessage(const OdString& message) override { messages.push_back(odStringToUtf8(message)); }
    OdString getString(const OdString& prompt, int options, OdEdStringTracker*) override
    {
        prompts.push_back(odStringToUtf8(prompt));
        promptOptions.push_back(options);
        if (answers.empty())
            throw OdEdCancel();
        OdString answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void putString(const OdString& text) override { texts.push_back(odStringToUtf8(text)); }
    void putError(const OdString& text) override { errors.push_back(odStringToUtf8(text)); }

    std::deque<OdString> answers;
    std::vector<std::string> prompts, texts, errors, messages;
    std::vector<int> promptOptions; ///< of each of the prompts
};

/// What a run left.
struct Outcome
{
    ECommandState state = eCommandNone;
    OdUInt32 flags = 0;
    OdResBufPtr result; ///< null beside an error
    Fault fault;

    OdResBufPtr value(const OdChar* name) const
    {
        OdString found;
        for (OdResBufPtr element = result; element;)
        {
            element = CadCommands::ResBufGetName(element, found);
            if (found == name)
                return element;
        }
        return {};
    }
    OdDbObjectId id() const
    {
        const OdResBufPtr element = value(L"OBJECTID");
        EXPECT_TRUE(element) << "no OBJECTID";
        return element ? element->getObjectId() : OdDbObjectId();
    }
    std::vector<OdDbObjectId> ids() const
    {
        std::vector<OdDbObjectId> found;
        for (OdResBufPtr element = value(L"OBJECTIDARRAY"); element; element = element->next())
            found.push_back(element->getObjectId());
        return found;
    }
    std::string json() const
    {
        const OdResBufPtr element = value(L"JSON");
        return element ? odStringToUtf8(element->getString()) : "no JSON";
    }
};

/// What the host's commands answer; set by tests.
struct HostCommands
{
    std::map<std::wstring, OdDbSelectionSetPtr> selections;
    std::wstring parsedText;
    std::function<void()> whileParsing;
    OdDbObjectIdArray parsedIds;
    OdResBufPtr viewerAnswer;             ///< of VIEWERGETEXTENTS
    std::vector<std::string> viewerCalls; ///< what the viewer was told to do

    static HostCommands& get()
    {
        static HostCommands commands;
        return commands;
    }
};

inline OdResBufPtr parameter(OdEdCommandContext* context, const OdChar* wanted)
{
    OdString name;
    for (OdResBufPtr element = OdResBuf::cast(context->funcIO()->param()); element;)
    {
        element = CadCommands::ResBufGetName(element, name);
        if (name == wanted)
            return element;
    }
    return {};
}

inline void getSelectionSet(OdEdCommandContext* context)
{
    OdString name;
    CadCommands::ResBufGetOdString(parameter(context, L"SELECTIONSETNAME"), name);
    const OdDbSelectionSetPtr& selection = HostCommands::get().selections[std::wstring(name.view())];
    context->funcIO()->setResult(selection ? CadCommands::SetParameterDbSelectionSet(L"SELECTIONSET", selection).get()
                                           : nullptr);
}

inline void sortTexts(OdEdCommandContext* context)
{
    HostCommands& commands = HostCommands::get();
    const OdDbCommandContextPtr drawing = OdDbCommandContext::cast(context);
    CadCommands::ResBufGetObjectIdArray(parameter(context, L"OBJECTIDARRAY"), drawing->database(), commands.parsedIds);
    if (commands.whileParsing)
        commands.whileParsing();
    context->funcIO()->setResult(CadCommands::SetParameterOdString(L"TEXT", OdString(commands.parsedText)).get());
}

inline std::string shown(const OdGePoint3d& point)
{
    return std::to_string(point.x) + " " + std::to_string(point.y) + " " + std::to_string(point.z);
}

inline void getViewExtents(OdEdCommandContext* context)
{
    HostCommands& commands = HostCommands::get();
    OdDbObjectIdArray ids;
    const OdDbCommandContextPtr drawing = OdDbCommandContext::cast(context);
    CadCommands::ResBufGetObjectIdArray(parameter(context, L"OBJECTIDARRAY"), drawing->database(), ids);
    std::string call = "extents of";
    for (const OdDbObjectId& id : ids)
        call += " " + odStringToUtf8(id.getHandle().ascii());
    commands.viewerCalls.push_back(call);
    context->funcIO()->setResult(commands.viewerAnswer);
}

inline void zoomToExtents(OdEdCommandContext* context)
{
    OdGeExtents3d extents;
    CadCommands::ResBufGetOdGeExtents3d(parameter(context, L"EXTENTS"), extents);
    HostCommands::get().viewerCalls.push_back("zoom " + shown(extents.minPoint()) + ", " + shown(extents.maxPoint()));
}

inline void dollyToPoint(OdEdCommandContext* context)
{
    HostCommands::get().viewerCalls.push_back("dolly " + shown(parameter(context, L"POINT")->getPoint3d()));
}

/// The SDK with the module loaded, for the whole program.
class Program : public ::testing::Environment
{
public:
    void SetUp() override
    {
        odInitialize();
        odrxRegisterStaticModule(kModuleName, &CreateModuleCad);
        odrxDynamicLinker()->loadApp(kModuleName, false);
        odedRegCmds()->addCommand(L"Quend.Zol.Cad.SelectionSet", L"SELECTIONSETGET", L"", 0, &getSelectionSet);
        odedRegCmds()->addCommand(L"Quend.Zol.Cad.TextParser", L"TEXTPARSERSORT", L"", 0, &sortTexts);
        odedRegCmds()->addCommand(L"Quend.Zol.Cad.Viewer", L"VIEWERGETEXTENTS", L"", 0, &getViewExtents);
        odedRegCmds()->addCommand(L"Quend.Zol.Cad.Viewer", L"ZOOMEXTENTS", L"", 0, &zoomToExtents);
        odedRegCmds()->addCommand(L"Quend.Zol.Cad.Viewer", L"DOLLY", L"", 0, &dollyToPoint);
    }
    void TearDown() override
    {
        HostCommands::get() = HostCommands();
        odUninitialize();
    }
};

inline ::testing::Environment* const g_program = ::testing::AddGlobalTestEnvironment(new Program);

// ---- Drawings -------------------------------------------------------------------------------------------------------

inline OdResBufPtr chain(std::initializer_list<OdResBufPtr> entries)
{
    OdResBufPtr whole;
    for (const OdResBufPtr& entry : entries)
        CadCommands::Append(whole, entry);
    return whole;
}

inline OdDbObjectIdArray idArray(const std::vector<OdDbObjectId>& ids)
{
    OdDbObjectIdArray array;
    for (const OdDbObjectId& id : ids)
        array.append(id);
    return array;
}

/// A parameter as commands on several objects take it.
inline OdResBufPtr ids(const std::vector<OdDbObjectId>& values)
{
    return CadCommands::SetParameterObjectIdArray(L"OBJECTIDARRAY", idArray(values));
}

class PluginTest : public ::testing::Test
{
protected:
    PluginTest() : host(OdRxObjectImpl<Host>::createObject()), db(OdDbDatabase::createObject())
    {
        HostCommands::get() = HostCommands();
        db->initialize();
    }

    Outcome run(const OdString& command, const OdResBufPtr& parameters = OdResBufPtr())
    {
        const CCommandHandlerPtr handler = CCommandHandler::createObject(command, db, host);
        handler->funcIO()->setParam(parameters);
        handler->Execute();
        return outcomeOf(*handler);
    }

    static Outcome outcomeOf(CCommandHandler& handler)
    {
        Outcome outcome;
        OdInt32 flags = 0;
        OdRxObjectPtr result;
        handler.GetResult(outcome.state, flags, result);
        outcome.flags = static_cast<OdUInt32>(flags);
        outcome.result = OdResBuf::cast(result);
        if (outcome.value(L"ERROR"))
        {
            const auto address = static_cast<OdIntPtr>(outcome.value(L"ERROR")->getInt64());
            outcome.fault = faultOf(*reinterpret_cast<const OdError*>(address));
            outcome.result.release();
        }
        return outcome;
    }

    OdDbObjectId append(OdDbEntity* entity, OdDbObjectId block = OdDbObjectId())
    {
        const OdDbObjectId owner = block.isNull() ? db->getModelSpaceId() : block;
        const OdDbBlockTableRecordPtr opened = owner.safeOpenObject(OdDb::kForWrite);
        return opened->appendOdDbEntity(entity);
    }
    OdDbObjectId addLine(double x = 0, OdDbObjectId block = OdDbObjectId())
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        line->setStartPoint(OdGePoint3d(x, 0, 0));
        line->setEndPoint(OdGePoint3d(x + 1, 2, 0));
        return append(line, block);
    }
    std::vector<OdDbObjectId> addLines(int count)
    {
        std::vector<OdDbObjectId> ids;
        ids.reserve(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            ids.push_back(addLine(i));
        return ids;
    }
    OdDbObjectId addBlock(const OdString& name)
    {
        const OdDbBlockTablePtr table = db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
        const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
        block->setName(name);
        return table->add(block);
    }
    OdDbObjectId addInsert(OdDbObjectId block, OdDbObjectId owner = OdDbObjectId())
    {
        const OdDbBlockReferencePtr insert = OdDbBlockReference::createObject();
        insert->setBlockTableRecord(block);
        return append(insert, owner);
    }
    OdDbObjectId addLabel(const std::vector<OdDbObjectId>& ids, const OdString& text, const OdString& guid = OdString())
    {
        const CBSystemLabelPtr label = CBSystemLabel::createObject();
        return label->Initialize(db, text, idArray(ids), guid);
    }
    static void erase(OdDbObjectId id, bool erasing = true)
    {
        id.safeOpenObject(OdDb::kForWrite, true)->erase(erasing);
    }
    static CBSystemLabelPtr openLabel(OdDbObjectId id, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return CBSystemLabelPtr(id.safeOpenObject(mode, true));
    }
    static std::vector<OdDbObjectId> referencesOf(OdDbObjectId label)
    {
        OdDbObjectIdArray ids;
        openLabel(label)->GetReferencedObjectIds(ids);
        return {ids.begin(), ids.end()};
    }
    /// "label text, GUID" of the marks on an object, "-" for one that is no custom label, "" for one without marks.
    static std::string markOf(OdDbObjectId id)
    {
        const CZolExtendedDataPtr data = CZolExtendedData::Get(id, false, true);
        if (!data)
            return "";
        const std::string texts = odStringToUtf8(data->GetName()) + ", " + odStringToUtf8(data->GetGuid());
        return (data->IsCustomLabel() ? "" : "-") + texts;
    }

    OdSmartPtr<Host> host;
    OdDbDatabasePtr db;
};

} // namespace plugintest
