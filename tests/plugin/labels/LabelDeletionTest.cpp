// Attacks the deletion of labels: what is passed over, what is refused, and that a refusal leaves everything as it was.
#include "support/PluginTest.h"

#include "DbXrecord.h"

using namespace plugintest;

namespace
{

class LabelDeletionTest : public PluginTest
{
protected:
    LabelDeletionTest()
        : lines(addLines(4)), a(addLabel({lines[0], lines[1]}, L"A", L"aaaa")), b(addLabel({lines[2]}, L"B", L"bbbb")),
          gone(addLabel({lines[3]}, L"gone", L"cccc"))
    {
        erase(gone);
        db->clearUndo();
    }

    /// Everything that a deletion can change.
    std::string state()
    {
        std::string all;
        for (const OdDbObjectId& line : lines)
            all += markOf(line) + "/" + std::to_string(line.safeOpenObject()->getPersistentReactors().size()) + " ";
        for (const OdDbObjectId& label : {a, b, gone})
            all += (label.isErased() ? "erased " : "there ") + std::to_string(referencesOf(label).size()) + " ";
        const OdDbDictionaryPtr dictionary = CBSystemLabel::GetDictionary(db);
        const OdDbDictionaryIteratorPtr entries = dictionary->newIterator();
        for (entries->start(false); !entries->done(); entries->next())
            all += odStringToUtf8(entries->name()) + " ";
        return all;
    }

    std::vector<OdDbObjectId> lines;
    OdDbObjectId a, b, gone;
};

TEST_F(LabelDeletionTest, RowsOfIds)
{
    const std::string function = "CCommandBSystemLabelDelete::Delete";
    const Fault noLabel = valueFault(39, "pObject", function);
    const std::string before = state();
    const OdDbObjectId none;
    const OdDbObjectId dangling = db->getOdDbObjectId(OdDbHandle(0xFFFF), true);
    const OdDbObjectId erasedLine = addLine();
    erase(erasedLine);
    const OdDbObjectId dictionary = CBSystemLabel::GetDictionary(db)->objectId();
    db->clearUndo();
    const std::tuple<std::vector<OdDbObjectId>, std::vector<OdDbObjectId>, Fault> rows[] = {
        {{}, {}, {}},
        {{none, dangling}, {}, {}},
        {{gone}, {}, {}},
        {{a}, {a}, {}},
        {{a, a}, {a}, {}},
        {{none, gone, b, dangling, a}, {a, b}, {}},
        {{lines[0]}, {}, noLabel},
        {{a, b, lines[0]}, {}, noLabel},
        {{a, erasedLine, b}, {}, noLabel},
        {{a, dictionary}, {}, noLabel},
        {{db->getLayerZeroId(), a}, {}, noLabel},
    };
    for (const auto& [given, deleted, fault] : rows)
    {
        const Outcome outcome = run(L"BSYSTEMLABELDELETE", ids(given));
        EXPECT_EQ(outcome.fault, fault);
        EXPECT_EQ(outcome.state, fault.code ? eCommandFailed : eCommandEnded);
        EXPECT_FALSE(outcome.result) << "it has no result";
        EXPECT_EQ(db->hasUndo(), !deleted.empty());
        if (deleted.empty())
        {
            EXPECT_EQ(state(), before);
            continue;
        }
        for (const OdDbObjectId& label : deleted)
        {
            EXPECT_TRUE(label.isErased());
            EXPECT_TRUE(CBSystemLabel::GetDictionary(db)->nameAt(label).isEmpty());
            for (const OdDbObjectId& line : referencesOf(label))
            {
                EXPECT_EQ(markOf(line), "-, ");
                EXPECT_EQ(line.safeOpenObject()->getPersistentReactors().size(), 0u);
            }
        }
        const std::string after = state();
        db->undo();
        EXPECT_EQ(state(), before);
        EXPECT_FALSE(db->hasUndo()) << "it is one step";
        db->redo();
        EXPECT_EQ(state(), after);
        db->undo();
        db->clearUndo();
    }
}

TEST_F(LabelDeletionTest, UsersChoose)
{
    host->answers = {L"Name", L"b"};
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE").state, eCommandEnded);
    EXPECT_TRUE(b.isErased());
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE").state, eCommandCancelled);
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE all").state, eCommandEnded);
    EXPECT_TRUE(a.isErased());
    host->answers = {lines[0].getHandle().ascii()};
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE").fault.code, 39);
    host->answers = {L"FFFFF"};
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE").state, eCommandEnded) << "a handle of nothing chooses nothing";
    EXPECT_EQ(db->numActiveTransactions(), 0);
}

TEST_F(LabelDeletionTest, LabelsOfErasedEntitiesAndLabelsOutsideOfTheDictionary)
{
    erase(lines[0]);
    const OdDbDictionaryPtr dictionary = CBSystemLabel::GetDictionary(db);
    dictionary->upgradeOpen();
    dictionary->remove(b);
    dictionary->downgradeOpen();
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE", ids({a, b})).fault, Fault());
    EXPECT_TRUE(a.isErased() && b.isErased());
    EXPECT_EQ(markOf(lines[0]), "-, ");
}

TEST_F(LabelDeletionTest, AStrangerInPlaceOfTheDictionary)
{
    const OdDbDictionaryPtr named = db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
    named->setAt(CBSystemLabel::m_strDictionaryName, OdDbXrecord::createObject());
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE", ids({a})).fault.type, "OdError_NotThatKindOfClass");
    EXPECT_EQ(db->numActiveTransactions(), 0);
}

TEST_F(LabelDeletionTest, ASubclassIsALabelToo)
{
    // A class of a host that derives from the label.
    class SpecialLabel : public CBSystemLabel
    {
    public:
        using CBSystemLabel::CBSystemLabel;
        int erasures = 0;

    protected:
        OdResult subErase(bool erasing) override
        {
            ++erasures;
            return CBSystemLabel::subErase(erasing);
        }
    };
    const auto special = OdRxObjectImpl<SpecialLabel>::createObject();
    const OdDbObjectId id = special->Initialize(db, L"S", {}, L"");
    special->downgradeOpen();
    EXPECT_EQ(run(L"BSYSTEMLABELDELETE", ids({id})).fault, Fault());
    EXPECT_EQ(special->erasures, 1);
    EXPECT_TRUE(id.isErased());
}

} // namespace
