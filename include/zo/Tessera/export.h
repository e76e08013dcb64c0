#ifndef ZO_TESSERA_EXPORT_H
#define ZO_TESSERA_EXPORT_H

/// Marks what the shared library offers; everything else in it is hidden. Exceptions bear it so
/// that a program built with hidden symbols catches them by their own type.
#define ZO_TESSERA_EXPORT __attribute__((visibility("default")))

#endif
