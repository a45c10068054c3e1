// The table of the annotation commands and their frame.
#include "annotations/AnnotationCommands.h"

#include <iterator>

#include "RxSystemServices.h"
#include "annotations/AnnotationJson.h"
#include "annotations/AnnotationWork.h"
#include "module/ground/Messages.h"

namespace
{

constexpr FrameCheckRow kChecks[] = {
    {EFrameCheck::IsDrawingContext, eNotThatKindOfClass, L"", EFrameError::NotThatKindOfClass},
    {EFrameCheck::IsDrawingUserIO, eNotThatKindOfClass, L"", EFrameError::NotThatKindOfClass},
    {EFrameCheck::HasDatabase, eNoDatabase, L"pDb", EFrameError::InvalidArgument},
    {EFrameCheck::IsOurFunctionIO, eNullPtr, L"pFunctionIO"},
};
constexpr FrameChecks kWithResult(kChecks);
constexpr FrameChecks kWithoutResult = kWithResult.first(3);

constexpr OdUInt32 kChange = eCommandFlagTransaction | eCommandFlagHost1;

constexpr CommandRow Row(const OdChar* pszClass, const OdChar* pszName, OdUInt32 uiFlags)
{
    return {pszClass, CommandGroup::kAnnotation, pszName, uiFlags};
}

constexpr AnnotationCommandRow kCommands[] = {
    {Row(L"CCommandCreateAnnotation", L"CREATEANNOTATIONFROMJSON", kChange | eCommandFlagResult), kWithResult,
     &CreateAnnotations},
    {Row(L"CCommandModifyAnnotation", L"MODIFYANNOTATIONFROMJSON", kChange | eCommandFlagResult), kWithResult,
     &ModifyAnnotations},
    {Row(L"CCommandDeleteAnnotation", L"DELETEANNOTATIONFROMJSON", kChange), kWithoutResult, &DeleteAnnotations},
};
static_assert(std::size(kCommands) == eAnnotationCommandCount);

constexpr int kAskForSomething = 3; // an answer that is not empty is required

} // namespace

const AnnotationCommandRow& AnnotationCommand(EAnnotationCommand eCommand)
{
    return kCommands[eCommand];
}

void CAnnotationCommand::Work(CCommandCall& call)
{
    const OdString strPrompt = odSystemServices()->formatMessage(eMessageAnnotationJson);
    AnnotationRecords records = Annotation::ReadAnnotationsFromJson(call.JsonText(strPrompt, kAskForSomething));
    m_row.work(call, records);
}
