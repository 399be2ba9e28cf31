// child_record_args ARG...: prints its argument count, then each argument in brackets on a line.
#include <string>

#include "write_all.h"

int main(int argc, char** argv) {
    std::string record = std::to_string(argc) + "\n";
    for (int i = 0; i < argc; ++i) record.append("[").append(argv[i]).append("]\n");
    return quillet::children::writeAll(1, record) ? 0 : 1;
}
