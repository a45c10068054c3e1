// How many texts and block references the filters of selections look at in a second.
#include <benchmark/benchmark.h>

#include <vector>

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbMText.h"
#include "DbText.h"
#include "DynamicLinker.h"
#include "RxInit.h"
#include "module/ground/ModuleName.h"
#include "module/registration/ModuleCad.h"
#include "userio/RegexFilters.h"

namespace
{

constexpr int kEntities = 20'000;

/// A drawing of texts as they are on mechanical drawings, and of references to blocks with such names.
class Drawing
{
public:
    Drawing()
    {
        odInitialize();
        odrxRegisterStaticModule(kModuleName, &CreateModuleCad);
        odrxDynamicLinker()->loadApp(kModuleName, false);
        m_db = OdDbDatabase::createObject();
        m_db->initialize();
        const OdDbBlockTableRecordPtr space = m_db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        constexpr int kBlocks = 200;
        std::vector<OdDbObjectId> blocks;
        blocks.reserve(kBlocks);
        for (int i = 0; i < kBlocks; ++i)
            blocks.push_back(addBlock(i));
        for (int i = 0; i < kEntities; ++i)
        {
            const OdDbTextPtr text = OdDbText::createObject();
            text->setTextString(OdString().format(i % 3 == 0 ? L"\u2300 %d H7" : L"E%d", i));
            texts.push_back(space->appendOdDbEntity(text));
            const OdDbMTextPtr lines = OdDbMText::createObject();
            lines->setContents(OdString().format(L"{\\fArial|b0;Material: \\C1;S235}\\PPart %d", i));
            multiLineTexts.push_back(space->appendOdDbEntity(lines));
            const OdDbBlockReferencePtr insert = OdDbBlockReference::createObject();
            insert->setBlockTableRecord(blocks[static_cast<std::size_t>(i) % blocks.size()]);
            inserts.push_back(space->appendOdDbEntity(insert));
        }
    }

    static Drawing& get()
    {
        static auto* const drawing = new Drawing;
        return *drawing;
    }

    std::vector<OdDbObjectId> texts, multiLineTexts, inserts;

private:
    OdDbObjectId addBlock(int number)
    {
        const OdDbBlockTablePtr table = m_db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
        const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
        block->setName(OdString().format(number % 2 ? L"LABEL_E%d" : L"BOLT_M%d", number));
        return table->add(block);
    }

    OdDbDatabasePtr m_db;
};

void lookAt(benchmark::State& state, OdEdSSetTracker& filter, const std::vector<OdDbObjectId>& ids)
{
    std::int64_t admitted = 0;
    for ([[maybe_unused]] auto pass : state)
        for (const OdDbObjectId& id : ids)
            admitted += filter.append(id, nullptr);
    benchmark::DoNotOptimize(admitted);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(ids.size()));
}

OdStringArray patterns()
{
    OdStringArray all;
    all.append(L"^E\\d+$");
    all.append(L"LABEL_E[0-9]*5$");
    return all;
}

void texts(benchmark::State& state)
{
    Drawing& drawing = Drawing::get();
    const CTextRegexFilterPtr filter = CTextRegexFilter::createObject();
    filter->SetPatterns(patterns());
    lookAt(state, *filter, drawing.texts);
}
BENCHMARK(texts);

void multiLineTexts(benchmark::State& state)
{
    Drawing& drawing = Drawing::get();
    const CTextRegexFilterPtr filter = CTextRegexFilter::createObject();
    filter->SetPatterns(patterns());
    lookAt(state, *filter, drawing.multiLineTexts);
}
BENCHMARK(multiLineTexts);

void blockNames(benchmark::State& state)
{
    Drawing& drawing = Drawing::get();
    const CBlockNameRegexFilterPtr filter = CBlockNameRegexFilter::createObject();
    filter->AddPatterns(patterns());
    lookAt(state, *filter, drawing.inserts);
}
BENCHMARK(blockNames);

} // namespace
