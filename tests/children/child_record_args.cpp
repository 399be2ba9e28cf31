// child_record_args ARG...: prints its argument count, then each argument in brackets on a line,
// as UTF-8 whatever the system's code page; into the file CHILD_RECORD_TO names when that is set
// (for a start by the system's shell, which gives the child no output to read).
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "tools/utf8_arguments.h"
#include "write_all.h"

int main(int argc, char** argv) {
    const std::vector<std::string> words = quillet::utf8Arguments(argc, argv);
    std::string record = std::to_string(words.size()) + "\n";
    for (const std::string& word : words) record.append("[").append(word).append("]\n");
    if (const char* file = std::getenv("CHILD_RECORD_TO")) {
        return (std::ofstream(file, std::ios::binary) << record) ? 0 : 1;
    }
    return quillet::children::writeAll(1, record) ? 0 : 1;
}
