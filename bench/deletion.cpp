// Deleting many labels in one request, and undoing it: both take time in proportion to the number of labels.
#include <map>
#include <vector>

#include <benchmark/benchmark.h>

#include "BSystemLabel.h"
#include "CommandHandler.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbLine.h"
#include "DynamicLinker.h"
#include "OdError.h"
#include "RxInit.h"
#include "RxObjectImpl.h"
#include "framework/CadCommands.h"
#include "module/ground/ModuleName.h"
#include "module/registration/ModuleCad.h"

namespace
{

/// A drawing of lines, each with a label of its own.
class LabelledDrawing
{
public:
    explicit LabelledDrawing(std::int64_t count)
    {
        static const bool isLoaded = load();
        (void)isLoaded;
        m_db = OdDbDatabase::createObject();
        m_db->initialize();
        m_db->disableUndoRecording(true);
        const OdDbBlockTableRecordPtr space = m_db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        for (std::int64_t i = 0; i < count; ++i)
        {
            OdDbObjectIdArray entities;
            entities.append(addLine(*space, double(i)));
            const CBSystemLabelPtr label = CBSystemLabel::createObject();
            m_labels.append(label->Initialize(m_db, L"E", entities, OdString()));
        }
        m_db->disableUndoRecording(false);
    }

    static LabelledDrawing& of(std::int64_t count)
    {
        static std::map<std::int64_t, LabelledDrawing*> drawings; // the SDK ends after them
        LabelledDrawing*& drawing = drawings[count];
        if (!drawing)
            drawing = new LabelledDrawing(count);
        return *drawing;
    }

    void deleteAll()
    {
        const auto callback = OdRxObjectImpl<CCommandHandlerCallback>::createObject();
        const CCommandHandlerPtr handler = CCommandHandler::createObject(L"BSYSTEMLABELDELETE", m_db, callback);
        handler->funcIO()->setParam(CadCommands::SetParameterObjectIdArray(L"OBJECTIDARRAY", m_labels));
        handler->Execute();
        if (!m_labels.last().isErased())
            throw OdError(L"labels were not deleted");
    }

    void undo()
    {
        m_db->undo();
        if (m_labels.last().isErased())
            throw OdError(L"the deletion was not undone");
    }

private:
    static OdDbObjectId addLine(OdDbBlockTableRecord& space, double x)
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        line->setEndPoint(OdGePoint3d(x, 1, 0));
        return space.appendOdDbEntity(line);
    }

    static bool load()
    {
        odInitialize();
        odrxRegisterStaticModule(kModuleName, &CreateModuleCad);
        odrxDynamicLinker()->loadApp(kModuleName, false);
        return true;
    }

    OdDbDatabasePtr m_db;
    OdDbObjectIdArray m_labels;
};

void deletion(benchmark::State& state)
{
    LabelledDrawing& drawing = LabelledDrawing::of(state.range(0));
    for ([[maybe_unused]] auto pass : state)
    {
        drawing.deleteAll();
        state.PauseTiming();
        drawing.undo();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(deletion)->RangeMultiplier(10)->Range(1000, 100'000)->Complexity(benchmark::oN);

void undoOfDeletion(benchmark::State& state)
{
    LabelledDrawing& drawing = LabelledDrawing::of(state.range(0));
    for ([[maybe_unused]] auto pass : state)
    {
        state.PauseTiming();
        drawing.deleteAll();
        state.ResumeTiming();
        drawing.undo();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(undoOfDeletion)->RangeMultiplier(10)->Range(1000, 100'000)->Complexity(benchmark::oN);

} // namespace
