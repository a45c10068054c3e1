// The message table of the plug-in.
#include "module/ground/Messages.h"

#include "RxSystemServices.h"

namespace
{

constexpr OdMessageEntry kMessages[] = {
    {eMessageRunFailed, L"Command \"%ls\" did not succeed."},
    {eMessageUnknownCommand, L"There is no command \"%ls\"."},
    {eMessageJsonNoObject, L"The JSON text is no object."},
    {eMessageJsonLacks, L"The JSON text lacks %ls."},
    {eMessageNoJson, L"The text is no JSON from character %ls on: %ls"},
    {eMessageRunCancelled, L"Command \"%ls\" was cancelled."},
    {eMessageRunEnded, L"Command \"%ls\" is done."},
    {eMessageBorderGuid, L"GUID of the drawing border <%ls>:"},
    {eMessageChooseLabels, L"Handle of a label, or which labels %ls:"},
    // Capitals are what has to be typed of a keyword; none of them may read like a hexadecimal handle.
    {eMessageLabelKeywords, L"aLl Selected Handle Guid Name"},
    {eMessageInvalidArgument, L"%ls cannot use the argument %ls: %ls."},
    {eMessageInvalidValue, L"%ls cannot go on with %ls: %ls."},
    {eMessageModuleMissing, L"%ls needs the module %ls: %ls."},
    {eMessageApplicationName, L"Name of the application:"},
    {eMessageSelectionSetName, L"Name of the selection set:"},
    {eMessageLabelHandle, L"Handle of the label:"},
    {eMessageLabelGuid, L"GUID of the label:"},
    {eMessageLabelName, L"Name of the label:"},
    {eMessageBorderCorner, L"Corner of the drawing border:"},
    {eMessageBorderOpposite, L"Opposite corner:"},
    {eMessageBorderJson, L"Drawing border as JSON:"},
};

} // namespace

void RegisterMessages()
{
    odSystemServices()->registerMessages(kMessages);
}

void UnregisterMessages()
{
    odSystemServices()->unregisterMessages(kMessages);
}
