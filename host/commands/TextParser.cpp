// The command TEXTPARSERSORT: what is written in some entities, in reading order.
#include "commands/CommandTable.h"
#include "commands/textparser/AssignFrames.h"
#include "commands/textparser/ComposeText.h"
#include "commands/textparser/PlaceTexts.h"

namespace hostcommands
{

void sortTexts(CommandRun& run)
{
    textparser::FoundTexts found = textparser::placeTexts(run.parameters.objectIds(L"OBJECTIDARRAY"));
    textparser::assignFrames(found);
    run.results.add(L"TEXT", textparser::composeText(found.texts));
}

} // namespace hostcommands
