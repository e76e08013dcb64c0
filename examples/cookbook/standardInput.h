#ifndef ZO_TESSERA_EXAMPLES_COOKBOOK_STANDARDINPUT_H
#define ZO_TESSERA_EXAMPLES_COOKBOOK_STANDARDINPUT_H

#include <unistd.h>

#include <stdexcept>
#include <string>

/// Makes a pipe with `text` in it the standard input, as `echo TEXT | program` does.
inline void pipeIntoStandardInput(const std::string& text) {
    int ends[2];
    if (pipe(ends) != 0 ||
        write(ends[1], text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        dup2(ends[0], STDIN_FILENO) == -1) {
        throw std::runtime_error("no pipe");
    }
    close(ends[0]);
    close(ends[1]);
}

#endif
