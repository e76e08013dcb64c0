#ifndef ZO_TESSERA_TESTS_GENERATION_NOSTREAM_H
#define ZO_TESSERA_TESTS_GENERATION_NOSTREAM_H

/// What a generator throws when it has no stream to write to.
inline const char* const k_noStream = "Generator: output stream not set!";

#endif
