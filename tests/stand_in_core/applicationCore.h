#ifndef STAND_IN_CORE_APPLICATIONCORE_H
#define STAND_IN_CORE_APPLICATIONCORE_H

/// Which core library a program has.
const char* coreName();

#endif
