// What the SDK needs of its surroundings: texts of messages, new unique names, warnings.
#pragma once

#include <cstdarg>

#include "OdCodePage.h"
#include "OdResult.h"
#include "RxObject.h"

/** One row of a message table: a number and the text, written as for OdString::format. */
struct OdMessageEntry
{
    unsigned int number;
    const OdChar* text;
};

/** OdRxSystemServices is the program's side of the SDK. A program may derive from it and hand its object to
   odInitialize; the operations as they are here suit a program without a screen. Message tables may be registered and
   messages formatted by several threads. */
class OdRxSystemServices : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxSystemServices);

    /** The text of a message with arguments put in as by OdString::format. A number that no table has gives a text that
        names the number. */
    OdString formatMessage(unsigned int formatId, ...);
    virtual OdString formatMessageV(unsigned int formatId, va_list arguments);
    /** The text of a code, as it is in the message table. */
    OdString messageText(unsigned int formatId) const;

    /** Adds the rows of a table, which must stay where it is until unregisterMessages. Of two tables with the same
       number, the one registered later counts. */
    void registerMessages(const OdMessageEntry* table, std::size_t numEntries);
    template<std::size_t N>
    void registerMessages(const OdMessageEntry (&table)[N])
    {
        registerMessages(table, N);
    }
    /** Withdraws a table; one that is not registered is passed over. */
    void unregisterMessages(const OdMessageEntry* table);

    /** A new unique name: "{", 32 random hexadecimal digits in upper case in groups of 8, 4, 4, 4 and 12 with "-"
       between them (version 4 of such names), and "}". */
    virtual OdString createGuid();

    /** Takes a warning; as it is here, forgets it. */
    virtual void warning(const OdString& message);
    void warning(OdResult code);

    /** The character set of texts without one. */
    virtual OdCodePageId systemCodePage() const;

    /** Finds the file of a module in a folder. Returns an empty text when there is none; as it is here, a file of just
        that name. */
    virtual OdString findModule(const OdString& fileName, const OdString& folder);
};
using OdRxSystemServicesPtr = OdSmartPtr<OdRxSystemServices>;

/** The services in use: those given to odInitialize, else those that the SDK brings. Never null. */
OdRxSystemServices* odSystemServices();
