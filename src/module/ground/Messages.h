// The texts that users read, by number.
#pragma once

/** Numbers of messages in the message table of the system services. What each is formatted with stands beside it; all
    arguments are texts. */
enum EMessage : unsigned int
{
    eMessageRunFailed = 902,          ///< name of the command
    eMessageUnknownCommand = 904,     ///< name of the command
    eMessageJsonNoObject = 924,       ///< none
    eMessageJsonLacks = 925,          ///< what is missing
    eMessageNoJson = 926,             ///< place in the text, what is wrong there
    eMessageRunCancelled = 941,       ///< name of the command
    eMessageRunEnded = 942,           ///< name of the command
    eMessageBorderGuid = 959,         ///< the present GUID
    eMessageChooseLabels = 961,       ///< hint of the keywords
    eMessageAnnotationJson = 963,     ///< none
    eMessageLabelKeywords = 1013,     ///< none: five keywords
    eMessageSelectKeywords = 1020,    ///< none: twelve ways to select, a text of the SDK's
    eMessageInvalidArgument = 20001,  ///< function, argument, text of the code
    eMessageInvalidValue = 20002,     ///< function, value, text of the code
    eMessageModuleMissing = 20003,    ///< function, module, text of the code
    eMessageApplicationName = 20011,  ///< none
    eMessageSelectionSetName = 20012, ///< none
    eMessageLabelHandle = 20013,      ///< none
    eMessageLabelGuid = 20014,        ///< none
    eMessageLabelName = 20015,        ///< none
    eMessageBorderCorner = 20016,     ///< none
    eMessageBorderOpposite = 20017,   ///< none
    eMessageBorderJson = 20018,       ///< none
    eMessageBorderNoPoint = 20019,    ///< none
    eMessageKeyMissing = 20022,       ///< key
    eMessageKeyNoNumber = 20023,      ///< key
    eMessageKeyNoInteger = 20024,     ///< key
    eMessageKeyNoBoolean = 20025,     ///< key
    eMessageKeyNoString = 20026,      ///< key
    eMessageKeyNotPositive = 20027,   ///< key
    eMessageKeyNegative = 20028,      ///< key
    eMessageKeyTooGreat = 20029,      ///< key
    eMessageKeyTooSmall = 20033,      ///< key
    eMessageNoObject = 20030,         ///< none
    eMessageNormalTooShort = 20031,   ///< none
    eMessageAnnotationInvalid = 20032 ///< index, reason
};

/** Makes the texts known to the system services, and withdraws them. */
void RegisterMessages();
void UnregisterMessages();
