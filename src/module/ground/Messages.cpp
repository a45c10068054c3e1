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
    {eMessageAnnotationJson, L"Annotations as JSON:"},
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
    {eMessageBorderNoPoint, L"Pick a corner, or type its coordinates with commas between them."},
    // What is wrong with an annotation; the last of them puts the others in a sentence.
    {eMessageKeyMissing, L"\"%ls\" is missing"},
    {eMessageKeyNoNumber, L"\"%ls\" is not a number"},
    {eMessageKeyNoInteger, L"\"%ls\" is not an integer of 32 bits"},
    {eMessageKeyNoBoolean, L"\"%ls\" is neither true nor false"},
    {eMessageKeyNoString, L"\"%ls\" is not a string"},
    {eMessageKeyNotPositive, L"\"%ls\" is not above 0"},
    {eMessageKeyNegative, L"\"%ls\" is below 0"},
    {eMessageKeyTooGreat, L"\"%ls\" is too great"},
    {eMessageKeyTooSmall, L"\"%ls\" is too small"},
    {eMessageNoObject, L"it is no object"},
    {eMessageNormalTooShort, L"\"Nx\", \"Ny\" and \"Nz\" are too small"},
    {eMessageAnnotationInvalid, L"Annotation [%ls] cannot be used: %ls."},
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
