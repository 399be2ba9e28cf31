// child_record_args ARG...: prints its argument count, then each argument in brackets on a line,
// as UTF-8 whatever the system's code page.
#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
// after windows.h, whose types it uses
#include <shellapi.h>
#endif

#include <string>
#include <vector>

#include "write_all.h"

namespace {

std::vector<std::string> arguments(int argc, char** argv) {
#ifdef _WIN32
    // The narrow arguments have passed through the code page; the wide ones are as they were sent.
    (void)argc;
    (void)argv;
    int count = 0;
    wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> words;
    for (int i = 0; wide && i < count; ++i) {
        const int size =
            ::WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, nullptr, 0, nullptr, nullptr);
        std::string word(static_cast<std::size_t>(size), '\0');
        ::WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, word.data(), size, nullptr, nullptr);
        word.resize(word.size() - 1);  // the terminating zero
        words.push_back(word);
    }
    ::LocalFree(wide);
    return words;
#else
    return {argv, argv + argc};
#endif
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> words = arguments(argc, argv);
    std::string record = std::to_string(words.size()) + "\n";
    for (const std::string& word : words) record.append("[").append(word).append("]\n");
    return quillet::children::writeAll(1, record) ? 0 : 1;
}
