// The file versions a drawing can have, from the early ones that are only read to the newest one,
// which is also the one that drawings are kept in while they are open.
#pragma once

namespace OdDb
{
/** Drawing file versions. The numbers are those that class registrations carry. */
enum DwgVersion : int
{
    kDHL_Unknown = 254,
    kDHL_CURRENT = 33,
    vAC09 = 11, ///< R9
    vAC10 = 13, ///< R10
    vAC12 = 16, ///< R11 and R12, "AC1009"
    vAC13 = 19, ///< R13, "AC1012"
    vAC14 = 21, ///< R14, "AC1014"
    vAC15 = 23, ///< 2000, "AC1015"
    vAC18 = 25, ///< 2004, "AC1018"
    vAC21 = 27, ///< 2007, "AC1021"
    vAC24 = 29, ///< 2010, "AC1024"
    vAC27 = 31, ///< 2013, "AC1027"
    vAC32 = 33  ///< 2018, "AC1032"
};

/** Maintenance releases within a file version. */
enum MaintReleaseVer : int
{
    kMRelease0 = 0,
    kMRelease55 = 55,
    kMReleaseCurrent = 55,
    kMReleaseUnknown = 254
};

/** How an object is opened. */
enum OpenMode : int
{
    kNotOpen = -1,
    kForRead = 0,
    kForWrite = 1,
    kForNotify = 2
};

/** What one object's reference to another means for ownership and for purging. */
enum ReferenceType : int
{
    kSoftPointerRef = 0,
    kHardPointerRef = 1,
    kSoftOwnershipRef = 2,
    kHardOwnershipRef = 3
};
} // namespace OdDb
