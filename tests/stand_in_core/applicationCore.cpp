#include "applicationCore.h"

const char* coreName() {
    return "the application's core";
}
