// The names under which the module and its place in the system registry are known.
#pragma once

#include "OdPlatform.h"

/** The application name that hosts load the module by. */
inline constexpr const OdChar* kModuleName = L"Quend.Zol.Cad.tx";

/** The entry of the system registry that holds the module-wide arbitrary data. */
inline constexpr const OdChar* kArbitraryDataPath = L"QUEND_ZOL_ARBITRARY_DATA";
