// The codes with which operations report how they went.
#pragma once

/** The outcome of an operation. A code is returned where failing is part of ordinary work, and carried by an OdError
    otherwise; the text of each lies in the message table (OdRxSystemServices::formatMessage). Modules and programs
    may use codes of their own, which then are values outside of those named here. */
enum OdResult : int
{
    eOk = 0,                 ///< success
    eNotImplementedYet = 1,  ///< not available for this input, for example for data of an unknown version
    eNotApplicable = 2,      ///< the operation has no meaning for this object
    eGeneralException = 3,   ///< an error that is described by its text alone
    eInvalidValue = 4,       ///< a value that has the right type but is not allowed, for example a text that is no GUID
    eInvalidInput = 5,       ///< an argument or a typed answer cannot be used
    eAmbiguousInput = 6,     ///< the input fits more than one thing
    eAmbiguousOutput = 7,    ///< the result fits more than one thing
    eOutOfMemory = 8,        ///< memory is exhausted
    eBufferTooSmall = 9,     ///< the buffer given is too small for the result
    eNotInitializedYet = 10, ///< the SDK or one of its classes is not initialised
    eInvalidContext = 11,    ///< the operation is not allowed in the present state
    eEndOfFile = 12,         ///< the data end before the value asked for
    eEndOfObject = 13,       ///< the object's data end before the value asked for
    eNullObjectPointer = 20, ///< an object is missing where one is required
    eNullObjectId = 21,      ///< an object id is null where one is required
    eWrongObjectType = 22,   ///< the object is of a type that cannot be used here
    eWrongDatabase = 23,     ///< the object belongs to another database
    eNotInDatabase = 24,     ///< the object is not resident in a database
    eAlreadyInDb = 25,       ///< the object is resident in a database already
    eHandleExists = 26,      ///< the handle is taken by another object
    eInvalidIndex = 27,      ///< an index that names no element
    eOutOfRange = 28,        ///< a value outside of its range
    eKeyNotFound = 29,       ///< no entry of that name
    eDuplicateKey = 30,      ///< an entry of that name exists
    eInvalidKey = 31,        ///< a name that cannot be used as a key
    eDuplicateRecordName = 32,              ///< a record of that name exists
    eInvalidSymbolTableName = 33,           ///< a name that cannot be used in a symbol table
    eNotOpenForRead = 34,                   ///< the object is not open for read
    eNotOpenForWrite = 35,                  ///< the object is not open for write
    eWasOpenForRead = 36,                   ///< the object is open for read already
    eWasOpenForWrite = 37,                  ///< the object is open for write already
    eWasOpenForNotify = 38,                 ///< the object is open for notify already
    eNotThatKindOfClass = 39,               ///< the object is not of the class asked for
    eWasErased = 40,                        ///< the object is erased
    eWasNotErased = 41,                     ///< the object is not erased
    ePermanentlyErased = 42,                ///< the object is gone for good
    eInvalidOpenMode = 43,                  ///< the object cannot be opened in this mode
    eWasNotOpenForWrite = 44,               ///< the object was not opened for write
    eCannotBeErasedByCaller = 45,           ///< the object may not be erased by the caller
    eDeletionNotAllowed = 46,               ///< the class refuses to be erased
    eInvalidOwnerObject = 47,               ///< the object cannot be owned by this owner
    eInvalidBlockName = 48,                 ///< no block of that name
    eInvalidLayer = 49,                     ///< no such layer
    eInvalidLinetype = 50,                  ///< no such linetype
    eInvalidTextStyle = 51,                 ///< no such text style
    eObjectToBeDeleted = 52,                ///< the object is on its way to be deleted
    eInvalidExtents = 60,                   ///< there is nothing to measure
    eDegenerateGeometry = 61,               ///< the shape has collapsed to less than its dimension
    eCannotScaleNonUniformly = 62,          ///< the shape would leave what its class can hold
    eNonInvertibleMatrix = 63,              ///< the matrix flattens space
    eNonPlanarEntity = 64,                  ///< the shape does not lie in a plane
    eInvalidNormal = 65,                    ///< a normal vector without direction
    eInvalidGroupCode = 66,                 ///< a group code that is not allowed here
    eInvalidResBuf = 68,                    ///< an element of a chain is not of the type required
    eBadDxfSequence = 69,                   ///< the groups of an object do not come in the order required
    eBadDxfFile = 70,                       ///< the file is no DXF file
    eInvalidDxfCode = 71,                   ///< a group code that DXF does not have
    eMissingDxfField = 72,                  ///< a group that is required is missing
    eInvalidFileVersion = 73,               ///< a file version that cannot be read or written
    eDwgObjectImproperlyRead = 74,          ///< the object's data do not have the form expected
    eDwgNeedsRecovery = 75,                 ///< the file is damaged
    eRecoveryFailed = 76,                   ///< the file is damaged beyond repair
    eFileNotFound = 80,                     ///< no file of that name
    eCantOpenFile = 81,                     ///< the file cannot be opened
    eFileAccessErr = 82,                    ///< the file cannot be accessed
    eFileWriteError = 83,                   ///< the file cannot be written
    eFileExists = 84,                       ///< a file of that name exists
    eFileSharingViolation = 85,             ///< the file is in use
    eFileInternalErr = 86,                  ///< the file's inner structure is broken
    eFileSystemErr = 87,                    ///< the file system refused
    eDiskFull = 88,                         ///< the disk is full
    eXdataSizeExceeded = 90,                ///< the object's extended data would exceed 16 KB
    eRegappIdNotFound = 91,                 ///< the application is not registered in the drawing
    eNoActiveTransactions = 92,             ///< no transaction is open
    eTransactionOpenWhileCommandEnded = 93, ///< a transaction was left open
    eUndoOperationNotAvailable = 94,        ///< there is nothing to undo or redo
    eEmptyName = 106,                       ///< a name is empty or cannot be used
    eNoDatabase = 122,                      ///< a database is missing where one is required
    eMakeMeProxy = 250,                     ///< data of a newer version than is known
    eLoadFailed = 251,                      ///< a module cannot be loaded
    eModuleVersionMismatch = 252,           ///< a module was built for another version of the SDK
    eModuleNotFound = 253,                  ///< no file for that module or application
    eClassNotRegistered = 255,              ///< a runtime class is not registered where it must be
    eClassAlreadyRegistered = 313,          ///< a runtime class is registered already
    eInvalidObjectId = 398,                 ///< an object id names no usable object
    eNullPtr = 417,                         ///< a pointer is null where one is required
    eUnknownCommand = 904,                  ///< no command of that name
};
