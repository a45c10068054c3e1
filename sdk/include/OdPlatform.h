// The basic types that every header of the SDK speaks in: integers of a known size, the character type, a few macros.
#pragma once

#include <cstddef>
#include <cstdint>

using OdInt8 = std::int8_t;
using OdUInt8 = std::uint8_t;
using OdInt16 = std::int16_t;
using OdUInt16 = std::uint16_t;
using OdInt32 = std::int32_t;
using OdUInt32 = std::uint32_t;
using OdInt64 = std::int64_t;
using OdUInt64 = std::uint64_t;
using OdIntPtr = std::intptr_t;
using OdUIntPtr = std::uintptr_t;

/** One character of a text: a Unicode code point. */
using OdChar = wchar_t;

/** Marks a part of a drawn object for selection. */
using OdGsMarker = OdIntPtr;

/** What the system hands out for a loaded module file. */
using HINSTANCE = void*;

/** Writes a literal of OdChar: OD_T("text"). */
#define OD_T_WIDE(text) L##text
#define OD_T(text) OD_T_WIDE(text)

/** Marks a class that cannot be instantiated. */
#define ODRX_ABSTRACT

/** The version of the SDK that modules are checked against when they are loaded. */
#define TD_MAJOR_VERSION 22
#define TD_MINOR_VERSION 10
#define TD_MAJOR_BUILD 0
#define TD_MINOR_BUILD 0
