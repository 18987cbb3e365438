#include "records/template_file.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_template FILE\n", stderr);
        return 2;
    }
    std::remove(argv[1]);
    if (MakeTemplateFile(argv[1]))
        return 0;
    std::fprintf(stderr, "make_template: cannot make %s\n", argv[1]);
    return 1;
}
