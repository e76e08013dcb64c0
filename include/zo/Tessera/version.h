#ifndef ZO_TESSERA_VERSION_H
#define ZO_TESSERA_VERSION_H

/// \file
/// The version of these headers, for what must be compiled in another way with another version:
///
///     #if ZO_TESSERA_VERSION_MAJOR > 1 || ZO_TESSERA_VERSION_MINOR >= 1
///
/// Versions are semantic: programs that were built with a version run with any later library of the
/// same major version, without being built again.

#define ZO_TESSERA_VERSION_MAJOR 1
#define ZO_TESSERA_VERSION_MINOR 0
#define ZO_TESSERA_VERSION_PATCH 0

#endif
