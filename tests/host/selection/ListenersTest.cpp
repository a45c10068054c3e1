// What the plug-in takes part in: filters that decide about each member, and listeners that hear what has come into a
// named set and what has left it. Host and plug-in run in this process.
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CommandHandler.h"
#include "DbSSet.h"
#include "Ed/EdInputTracker.h"
#include "RxObjectImpl.h"
#include "SelectionSetReactor.h"
#include "commands/SelectionSets.h"
#include "session/HostServices.h"
#include "session/OpenDrawing.h"
#include "support/DxfRecords.h"
#include "support/EntityDrawing.h"
#include "support/TemporaryFolder.h"

namespace
{

using Ids = OdDbObjectIdArray;

std::string handlesOf(const Ids& ids)
{
    std::string handles;
    for (const OdDbObjectId& id : ids)
        handles += (handles.empty() ? "" : " ") + odStringToUtf8(id.getHandle().ascii());
    return handles;
}

class Listener : public CSelectionSetReactor
{
public:
    void OnSelectionSetChanged(const OdString& name, const Ids& come, const Ids& gone) override
    {
        heard.push_back(odStringToUtf8(name) + ": +" + handlesOf(come) + " -" + handlesOf(gone));
    }

    std::vector<std::string> heard;
};

class Filter : public OdEdSSetTracker
{
public:
    bool append(OdDbObjectId entity, const OdDbSelectionMethod* method) override
    {
        const OdDbVisualSelectionPtr visual = OdDbVisualSelection::cast(method);
        asked += '+' + handlesOf({entity}) + (visual.isNull() ? "" : "@" + std::to_string(visual->mode())) + ' ';
        if (isBroken)
            throw OdError(eNotApplicable);
        return entity != refused;
    }
    bool remove(OdDbObjectId entity, const OdDbSelectionMethod*) override
    {
        asked += '-' + handlesOf({entity}) + ' ';
        return entity != refused;
    }

    std::string asked;
    OdDbObjectId refused;
    bool isBroken = false;
};

// Answers questions for points with two corners that have everything between them.
class User : public CCommandHandlerCallback
{
public:
    OdGePoint3d getPoint(const OdString&, int, OdEdPointTracker*) override
    {
        m_isSecond = !m_isSecond;
        return m_isSecond ? OdGePoint3d(-10, -10, 0) : OdGePoint3d(100, 100, 0);
    }

private:
    bool m_isSecond = false;
};

OdResBufPtr chainOf(const std::vector<OdResBufPtr>& elements)
{
    for (std::size_t i = 1; i < elements.size(); ++i)
        elements[i - 1]->setNext(elements[i]);
    return elements.empty() ? OdResBuf::newRb() : elements[0];
}

OdResBufPtr name(const wchar_t* text)
{
    return OdResBuf::newRb(OdResBuf::kRtString, OdString(text));
}

OdResBufPtr pointer(OdRxObject* object)
{
    return OdResBuf::newRb(OdResBuf::kRtInt64, static_cast<OdInt64>(reinterpret_cast<std::intptr_t>(object)));
}

OdResBufPtr pickSet(const OdDbSelectionSetPtr& set)
{
    OdResBufPtr element = OdResBuf::newRb(OdResBuf::kRtPickSet);
    element->setPickSet(set);
    return element;
}

class Listeners : public testing::Test
{
protected:
    Listeners() : m_services(session::Plugin::kLoaded)
    {
        support::writeWholeFile(m_folder.path("drawing.dxf"),
                                support::drawingOf({{"LINE A1 0|100 AcDbLine|10 0|20 0|11 10|21 0",
                                                     "LINE A2 0|100 AcDbLine|10 0|20 5|11 10|21 5",
                                                     "LINE A3 0|100 AcDbLine|10 0|20 9|11 10|21 9"}}));
        m_drawing = std::make_unique<session::OpenDrawing>(odUtf8ToString(m_folder.path("drawing.dxf")));
    }

    OdDbDatabase& database() { return m_drawing->database(); }
    OdDbObjectId id(OdUInt64 handle) { return database().getOdDbObjectId(OdDbHandle(handle)); }

    OdDbSelectionSetPtr setOf(const std::vector<OdUInt64>& handles)
    {
        OdDbSelectionSetPtr set = OdDbSelectionSet::createObject(&database());
        for (const OdUInt64 handle : handles)
            set->append(id(handle));
        return set;
    }

    // Runs a command and gives the selection set it answers with, null when it failed.
    OdDbSelectionSetPtr run(const wchar_t* command, const std::vector<OdResBufPtr>& parameters)
    {
        const OdSmartPtr<User> user = OdRxObjectImpl<User>::createObject();
        const CCommandHandlerPtr handler = CCommandHandler::createObject(command, &database(), user);
        handler->funcIO()->setParam(chainOf(parameters));
        handler->Execute();
        ECommandState state = eCommandNone;
        OdInt32 flags = 0;
        OdRxObjectPtr result;
        handler->GetResult(state, flags, result);
        const OdResBufPtr chain = OdResBuf::cast(result);
        if (state != eCommandEnded || chain.isNull() || chain->next().isNull())
            return {};
        return OdDbSelectionSet::cast(chain->next()->getPickSet());
    }

private:
    support::TemporaryFolder m_folder;
    session::HostServices m_services;
    std::unique_ptr<session::OpenDrawing> m_drawing;
};

TEST_F(Listeners, HearWhatHasComeAndGone)
{
    const OdSmartPtr<Listener> listener = OdRxObjectImpl<Listener>::createObject();
    CSelectionSetReactor::AddReactor(&database(), listener);
    const auto update = [&](const wchar_t* setName, const std::vector<OdUInt64>& handles)
    {
        run(L"SELECTIONSETUPDATE",
            {name(L"SELECTIONSETNAME"), name(setName), name(L"SELECTIONSET"), pickSet(setOf(handles))});
    };
    update(L"", {0xA1, 0xA2});
    update(L"pickfirst", {0xA2, 0xA1}); // nothing has come or gone
    update(L"PickFirst", {0xA3, 0xA2});
    update(L"other", {0xA1});
    run(L"SELECTIONSELECTLASTVISIBLEENTITY", {name(L"SELECTIONSETNAME"), name(L"other")});
    run(L"SELECTIONSELECTALLVISIBLEENTITIES", {});
    run(L"SELECTIONSETCLEAR", {name(L"SELECTIONSETNAME"), name(L"")});
    run(L"SELECTIONSETCLEAR", {name(L"SELECTIONSETNAME"), name(L"")});
    EXPECT_EQ(listener->heard, (std::vector<std::string>{"PICKFIRST: +A1 A2 -", "PICKFIRST: +A3 -A1", "OTHER: +A1 -",
                                                         "OTHER: +A3 -A1", "PICKFIRST: + -A3 A2"}));
    CSelectionSetReactor::RemoveReactor(&database(), listener);
}

TEST_F(Listeners, FilterWhatIsSelected)
{
    const OdSmartPtr<Filter> filter = OdRxObjectImpl<Filter>::createObject();
    filter->refused = id(0xA2);
    const auto asked = [&] { return std::exchange(filter->asked, std::string()); };
    const std::vector<OdResBufPtr> filtered = {name(L"FILTEROBJECT"), pointer(filter)};
    EXPECT_EQ(handlesOf(run(L"SELECTIONSELECTALLVISIBLEENTITIES", filtered)->objectIdArray()), "A1 A3");
    EXPECT_EQ(asked(), "+A1 +A2 +A3 ");
    EXPECT_EQ(handlesOf(run(L"SELECTIONSELECTVISUAL",
                            {name(L"SELECTFUNCTION"), OdResBuf::newRb(OdResBuf::kRtInt32, OdInt32(3)),
                             name(L"FILTEROBJECT"), pointer(filter)})
                            ->objectIdArray()),
              "A1 A3");
    EXPECT_EQ(asked(), "+A1@3 +A2@3 +A3@3 ");
    filter->refused = id(0xA3);
    EXPECT_EQ(run(L"SELECTIONSELECTPREVIOUS", {name(L"FILTEROBJECT"), pointer(filter)})->numEntities(), 2u);
    EXPECT_EQ(asked(), "") << "what was selected before was filtered then";
    EXPECT_EQ(run(L"SELECTIONSELECTLASTVISIBLEENTITY", {name(L"FILTEROBJECT"), pointer(filter)})->numEntities(), 0u);
    asked();
    const auto merge = [&](int options)
    {
        const OdDbSelectionSetPtr merged =
            run(L"SELECTIONSETMERGE",
                {name(L"SOURCE"), pickSet(setOf({0xA2, 0xA3})), name(L"DESTINATION"),
                 pickSet(setOf({0xA1, 0xA2, 0xA3})), name(L"OPTIONS"),
                 OdResBuf::newRb(OdResBuf::kRtInt32, OdInt32(options)), name(L"FILTEROBJECT"), pointer(filter)});
        return merged.isNull() ? "failed" : handlesOf(merged->objectIdArray());
    };
    EXPECT_EQ(merge(0x20), "A1 A3");
    EXPECT_EQ(asked(), "-A2 -A3 ");
    EXPECT_EQ(merge(0), "A1 A2 A3");
    filter->isBroken = true;
    EXPECT_EQ(merge(0), "failed");
    EXPECT_TRUE(run(L"SELECTIONSELECTALLVISIBLEENTITIES", {name(L"FILTEROBJECT"), pointer(setOf({}))}).isNull())
        << "an object that is no filter";
    EXPECT_FALSE(run(L"SELECTIONSELECTALLVISIBLEENTITIES", {name(L"FILTEROBJECT"), pointer(nullptr)}).isNull());
}

TEST_F(Listeners, CannotChangeWhatIsStored)
{
    const OdDbSelectionSetPtr given = setOf({0xA1});
    run(L"SELECTIONSETUPDATE", {name(L"SELECTIONSETNAME"), name(L"x"), name(L"SELECTIONSET"), pickSet(given),
                                name(L"HIGHLIGHT"), OdResBuf::newRb(OdResBuf::kRtBool, true)});
    given->append(id(0xA2));
    const OdDbSelectionSetPtr got = run(L"SELECTIONSETGET", {name(L"SELECTIONSETNAME"), name(L"x")});
    EXPECT_EQ(handlesOf(got->objectIdArray()), "A1");
    got->clear();
    EXPECT_EQ(run(L"SELECTIONSETGET", {name(L"SELECTIONSETNAME"), name(L"X")})->numEntities(), 1u);
    EXPECT_TRUE(hostcommands::isHighlighted(database(), L"X"));
    EXPECT_FALSE(hostcommands::isHighlighted(database(), L""));
    run(L"SELECTIONSETCLEAR", {name(L"SELECTIONSETNAME"), name(L"x")});
    EXPECT_FALSE(hostcommands::isHighlighted(database(), L"X"));
}

} // namespace
