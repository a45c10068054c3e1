// The names of command groups, of commands that others call, and of the bits of commands' flags.
#pragma once

#include "OdPlatform.h"

namespace CommandGroup
{
inline constexpr const OdChar* kTransaction = L"Quend.Zol.Cad.Transaction";
inline constexpr const OdChar* kExtendedData = L"Quend.Zol.Cad.ExtendedData";
inline constexpr const OdChar* kLabel = L"Quend.Zol.Cad.BSystemLabel";
inline constexpr const OdChar* kAnnotation = L"Quend.Zol.Cad.Annotation";
inline constexpr const OdChar* kDrawingBorder = L"Quend.Zol.Cad.DrawingBorder";
// Groups of the host.
inline constexpr const OdChar* kSelectionSet = L"Quend.Zol.Cad.SelectionSet";
inline constexpr const OdChar* kSelection = L"Quend.Zol.Cad.Selection";
inline constexpr const OdChar* kViewer = L"Quend.Zol.Cad.Viewer";
inline constexpr const OdChar* kTextParser = L"Quend.Zol.Cad.TextParser";
} // namespace CommandGroup

/** The bits that the module's commands add to the flags that the SDK gives every command. */
enum ECommandFlags : OdUInt32
{
    eCommandFlagNoUndo = 0x01000000,      ///< undo recording is switched off for the run
    eCommandFlagHost1 = 0x04000000,       ///< only reported to the host
    eCommandFlagHost2 = 0x08000000,       ///< only reported to the host
    eCommandFlagResult = 0x10000000,      ///< the command leaves a result chain, or none
    eCommandFlagTransaction = 0x20000000, ///< the command works in a transaction of its own

    eCommandFlagsOfSdk = 0x02FFFFFF ///< the bits that are left as the SDK gives them
};
