// What the tests of stamps share: their JSON with single members changed, stamps in drawings and the entities in them.
#pragma once

#include <initializer_list>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "DbHatch.h"
#include "DbMText.h"
#include "DbPolyline.h"
#include "DbRasterImage.h"
#include "annotations/AnnotationJson.h"
#include "support/PluginTest.h"

namespace annotationtest
{

using namespace plugintest;
using Annotation::AnnotationProperties;

/// Members of a stamp and their values as JSON, instead of the usual ones; an empty value leaves the member out.
using Changes = std::vector<std::pair<std::string, std::string>>;

/// "Height=10|Width=40": names and values, divided by bars.
inline Changes changesFrom(const std::string& text)
{
    Changes changes;
    std::istringstream all(text);
    for (std::string member; std::getline(all, member, '|');)
        changes.emplace_back(member.substr(0, member.find('=')), member.substr(member.find('=') + 1));
    return changes;
}

/// In the order in which they are read.
inline const Changes& usualMembers()
{
    static const Changes members = changesFrom(
        R"(Height=10|Width=40|Padding=1|Angle=0|Nx=0|Ny=0|Nz=1|Id="id"|DocumentVersionId="7"|Text="Checked"|)"
        R"(HorizontalAlignment=1|VerticalAlignment=2|OriginalImagePath=""|EffectiveImageFileName=""|Uniform=true|)"
        R"(Handle=""|TextColor="#FF000000"|BackgroundColor="#80FFFFCC"|BorderColor="#FF0000FF"|BorderShape=-4|)"
        R"(BorderThickness=0.5|CornerRadius=0|FitToText=false|Font="Arial"|LineSpacingFactor=1|FontSize=2.5)");
    return members;
}

/// The JSON of a stamp.
inline std::string stamp(const Changes& changes = {})
{
    Changes members = usualMembers();
    for (const auto& change : changes)
    {
        bool known = false;
        for (auto& member : members)
            if (member.first == change.first)
            {
                member.second = change.second;
                known = true;
            }
        if (!known)
            members.push_back(change);
    }
    std::string text;
    for (const auto& [key, value] : members)
        if (!value.empty())
            text += (text.empty() ? "{\"" : ",\"") + key + "\":" + value;
    return text + "}";
}

inline std::string array(const std::vector<std::string>& stamps)
{
    std::string text = "[";
    for (const std::string& one : stamps)
        text += (text.size() > 1 ? "," : "") + one;
    return text + "]";
}

inline std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

inline OdString wide(const std::string& text)
{
    return odUtf8ToString(text);
}

inline AnnotationProperties record(const Changes& changes = {})
{
    return Annotation::ReadAnnotationsFromJson(wide(stamp(changes))).at(0);
}

/// What an error says, empty for none.
inline std::string textOf(const OdError& error)
{
    return error.code() == eOk ? "" : odStringToUtf8(error.description());
}

class AnnotationTest : public PluginTest
{
protected:
    Outcome create(const std::vector<std::string>& stamps)
    {
        return runJson(L"CREATEANNOTATIONFROMJSON", array(stamps));
    }
    Outcome modify(const std::vector<std::string>& stamps)
    {
        return runJson(L"MODIFYANNOTATIONFROMJSON", array(stamps));
    }
    Outcome remove(const std::vector<std::string>& stamps)
    {
        return runJson(L"DELETEANNOTATIONFROMJSON", array(stamps));
    }

    Outcome runJson(const OdChar* command, const std::string& json)
    {
        return run(command, CadCommands::SetParameterOdString(L"JSON", wide(json)));
    }

    /// Runs the command itself, without a handler that undoes what fails, and gives its error.
    OdError runBare(const OdChar* command, const std::string& json)
    {
        const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
        handler->funcIO()->setParam(CadCommands::SetParameterOdString(L"JSON", wide(json)).get());
        const OdError error = support::caught(
            [&] { odedRegCmds()->executeCommand(odedRegCmds()->lookupCmd(command, 3), handler.get()); });
        EXPECT_EQ(db->numActiveTransactions(), 0);
        return error;
    }

    /// The handles in an answer, in its order.
    static std::vector<std::string> handlesOf(const Outcome& outcome)
    {
        std::vector<std::string> handles;
        const std::string json = outcome.json();
        for (std::size_t at = json.find("\"Handle\":\""); at != std::string::npos;
             at = json.find("\"Handle\":\"", at + 1))
            handles.push_back(json.substr(at + 10, json.find('"', at + 10) - at - 10));
        return handles;
    }
    /// The handle of a new stamp.
    std::string createOne(const Changes& changes = {})
    {
        const Outcome outcome = create({stamp(changes)});
        EXPECT_EQ(outcome.state, eCommandEnded) << outcome.fault;
        const std::vector<std::string> handles = handlesOf(outcome);
        return handles.size() == 1 ? handles.front() : "";
    }
    /// Changes that name a stamp.
    static Changes with(const std::string& handle, Changes changes = {})
    {
        changes.emplace_back("Handle", quoted(handle));
        return changes;
    }

    OdDbObjectId idOf(const std::string& handle) { return db->getOdDbObjectId(OdDbHandle(handle.c_str())); }
    OdDbBlockReferencePtr reference(const std::string& handle, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return idOf(handle).safeOpenObject(mode);
    }
    OdDbBlockTableRecordPtr definition(const std::string& handle)
    {
        return reference(handle)->blockTableRecord().safeOpenObject();
    }
    static std::vector<OdDbObjectId> entitiesOf(const OdDbBlockTableRecord& block)
    {
        std::vector<OdDbObjectId> ids;
        for (OdDbObjectIteratorPtr it = block.newIterator(); !it->done(); it->step())
            ids.push_back(it->objectId());
        return ids;
    }
    std::vector<OdDbObjectId> contentOf(const std::string& handle) { return entitiesOf(*definition(handle)); }
    /// The one entity of that class in a stamp.
    template<class Entity>
    OdSmartPtr<Entity> the(const std::string& handle)
    {
        OdSmartPtr<Entity> found;
        for (const OdDbObjectId& id : contentOf(handle))
            if (id.objectClass()->isDerivedFrom(Entity::desc()))
            {
                EXPECT_TRUE(found.isNull());
                found = id.safeOpenObject();
            }
        EXPECT_FALSE(found.isNull());
        return found;
    }
    std::string contents(const std::string& handle) { return odStringToUtf8(the<OdDbMText>(handle)->contents()); }
    std::size_t modelCount()
    {
        const OdDbBlockTableRecordPtr model = db->getModelSpaceId().safeOpenObject();
        return entitiesOf(*model).size();
    }
    bool hasBlock(const OdChar* name)
    {
        const OdDbBlockTablePtr blocks = db->getBlockTableId().safeOpenObject();
        return blocks->has(name);
    }
};

} // namespace annotationtest
