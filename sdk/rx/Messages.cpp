// The table of the SDK's own messages, and looking texts up.
#include "rx/Messages.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace odmessages
{
namespace
{

constexpr OdMessageEntry kMessages[] = {
    {eOk, L"No error"},
    {eNotImplementedYet, L"Data of this version or form are not supported"},
    {eNotApplicable, L"Not applicable to this object"},
    {eGeneralException, L"An error occurred"},
    {eInvalidValue, L"The value is not allowed"},
    {eInvalidInput, L"The input is not valid"},
    {eAmbiguousInput, L"The input is ambiguous"},
    {eAmbiguousOutput, L"The result is ambiguous"},
    {eOutOfMemory, L"Memory is exhausted"},
    {eBufferTooSmall, L"The buffer is too small"},
    {eNotInitializedYet, L"The SDK is not initialised"},
    {eInvalidContext, L"Not possible in the present state"},
    {eEndOfFile, L"The data end too early"},
    {eEndOfObject, L"The object's data end too early"},
    {eNullObjectPointer, L"An object is missing"},
    {eNullObjectId, L"The object id is null"},
    {eWrongObjectType, L"The object is of the wrong type"},
    {eWrongDatabase, L"The object belongs to another drawing"},
    {eNotInDatabase, L"The object is not in a drawing"},
    {eAlreadyInDb, L"The object is in a drawing already"},
    {eHandleExists, L"The handle is in use"},
    {eInvalidIndex, L"The index is out of range"},
    {eOutOfRange, L"The value is out of range"},
    {eKeyNotFound, L"No entry of that name"},
    {eDuplicateKey, L"An entry of that name exists"},
    {eInvalidKey, L"The name cannot be used as a key"},
    {eDuplicateRecordName, L"A record of that name exists"},
    {eInvalidSymbolTableName, L"The name cannot be used in a symbol table"},
    {eNotOpenForRead, L"The object is not open for read"},
    {eNotOpenForWrite, L"The object is not open for write"},
    {eWasOpenForRead, L"The object is open for read"},
    {eWasOpenForWrite, L"The object is open for write"},
    {eWasOpenForNotify, L"The object is open for notify"},
    {eNotThatKindOfClass, L"The object is not of the required class"},
    {eWasErased, L"The object is erased"},
    {eWasNotErased, L"The object is not erased"},
    {ePermanentlyErased, L"The object is permanently erased"},
    {eInvalidOpenMode, L"The object cannot be opened in this mode"},
    {eWasNotOpenForWrite, L"The object was not opened for write"},
    {eCannotBeErasedByCaller, L"The object cannot be erased by the caller"},
    {eDeletionNotAllowed, L"The object may not be erased"},
    {eInvalidOwnerObject, L"The owner cannot own this object"},
    {eInvalidBlockName, L"No such block"},
    {eInvalidLayer, L"No such layer"},
    {eInvalidLinetype, L"No such linetype"},
    {eInvalidTextStyle, L"No such text style"},
    {eObjectToBeDeleted, L"The object is being deleted"},
    {eInvalidExtents, L"There are no extents"},
    {eDegenerateGeometry, L"The geometry is degenerate"},
    {eCannotScaleNonUniformly, L"The object cannot be scaled non-uniformly"},
    {eNonInvertibleMatrix, L"The matrix cannot be inverted"},
    {eNonPlanarEntity, L"The object is not planar"},
    {eInvalidNormal, L"The normal vector is not valid"},
    {eInvalidGroupCode, L"The group code is not valid here"},
    {eInvalidResBuf, L"A value is not of the required type"},
    {eBadDxfSequence, L"Groups are not in the required order"},
    {eBadDxfFile, L"Not a valid DXF file"},
    {eInvalidDxfCode, L"The group code does not exist"},
    {eMissingDxfField, L"A required group is missing"},
    {eInvalidFileVersion, L"The file version is not supported"},
    {eDwgObjectImproperlyRead, L"The object's data were not read properly"},
    {eDwgNeedsRecovery, L"The drawing is damaged"},
    {eRecoveryFailed, L"The drawing cannot be recovered"},
    {eFileNotFound, L"File not found"},
    {eCantOpenFile, L"Cannot open file"},
    {eFileAccessErr, L"Cannot access file"},
    {eFileWriteError, L"Cannot write file"},
    {eFileExists, L"The file exists"},
    {eFileSharingViolation, L"The file is in use"},
    {eFileInternalErr, L"The file is inconsistent"},
    {eFileSystemErr, L"File system error"},
    {eDiskFull, L"The disk is full"},
    {eXdataSizeExceeded, L"Extended data exceed 16 KB"},
    {eRegappIdNotFound, L"The application is not registered in the drawing"},
    {eNoActiveTransactions, L"No transaction is open"},
    {eTransactionOpenWhileCommandEnded, L"A transaction was left open"},
    {eUndoOperationNotAvailable, L"Nothing to undo or redo"},
    {eEmptyName, L"The name is empty or not valid"},
    {eNoDatabase, L"No drawing"},
    {eMakeMeProxy, L"The data are of a newer version"},
    {eLoadFailed, L"The module cannot be loaded"},
    {eModuleVersionMismatch, L"The module was built for another version"},
    {eModuleNotFound, L"The module was not found"},
    {eClassNotRegistered, L"The class is not registered"},
    {eClassAlreadyRegistered, L"The class is registered already"},
    {eInvalidObjectId, L"The object id is not valid"},
    {eNullPtr, L"A null pointer was given"},
    {eUnknownCommand, L"Unknown command"},
    // The ways to select, in the order of OdDbVisualSelection::Mode and then those without a shape. Capitals are what
    // has to be typed.
    {1020, L"POint Box Window Crossing Fence WPolygon CPolygon ALL Last Previous Handle Json"},
};

struct Table
{
    const OdMessageEntry* entries;
    std::size_t numEntries;
};

struct Tables
{
    std::mutex mutex;
    std::vector<Table> registered{{kMessages, std::size(kMessages)}};
};

Tables& tables()
{
    static Tables* const all = new Tables;
    return *all;
}

const OdChar* findIn(const Table& table, unsigned int number)
{
    const OdMessageEntry* end = table.entries + table.numEntries;
    const OdMessageEntry* found =
        std::find_if(table.entries, end, [number](const OdMessageEntry& entry) { return entry.number == number; });
    return found == end ? nullptr : found->text;
}

} // namespace

const OdChar* find(unsigned int number)
{
    const std::lock_guard<std::mutex> lock(tables().mutex);
    for (auto table = tables().registered.rbegin(); table != tables().registered.rend(); ++table)
        if (const OdChar* text = findIn(*table, number))
            return text;
    return nullptr;
}

void add(const OdMessageEntry* table, std::size_t numEntries)
{
    const std::lock_guard<std::mutex> lock(tables().mutex);
    tables().registered.push_back({table, numEntries});
}

void remove(const OdMessageEntry* table)
{
    const std::lock_guard<std::mutex> lock(tables().mutex);
    std::vector<Table>& registered = tables().registered;
    const auto isTable = [table](const Table& candidate) { return candidate.entries == table; };
    registered.erase(std::remove_if(registered.begin() + 1, registered.end(), isTable), registered.end());
}

namespace
{

/** The newest text that needs no arguments, else the newest one; null when there is none. */
const OdChar* findPlain(unsigned int number)
{
    const std::lock_guard<std::mutex> lock(tables().mutex);
    const OdChar* newest = nullptr;
    for (auto table = tables().registered.rbegin(); table != tables().registered.rend(); ++table)
    {
        const OdChar* text = findIn(*table, number);
        if (text && std::wstring_view(text).find(L'%') == std::wstring_view::npos)
            return text;
        newest = newest ? newest : text;
    }
    return newest;
}

} // namespace

OdString withoutArguments(unsigned int number)
{
    const OdChar* found = findPlain(number);
    if (!found)
        return OdString().format(L"Error %u", number);
    std::wstring text;
    for (std::wstring_view rest = found; !rest.empty();)
    {
        const std::size_t plain = std::min(rest.find(L'%'), rest.size());
        text.append(rest.substr(0, plain));
        rest.remove_prefix(std::min(plain + 1, rest.size()));
        if (plain == 0 && rest.empty())
            break;
        if (rest.starts_with(L'%'))
        {
            text += L'%';
            rest.remove_prefix(1);
        }
        else if (!rest.empty())
        {
            text += L"...";
            rest.remove_prefix(std::min(rest.find_first_not_of(L"-+ #0123456789.*hljztL"), rest.size() - 1) + 1);
        }
    }
    return OdString(text);
}
} // namespace odmessages
