#include "tools/utf8_arguments.h"

#include "tools/windows_api.h"
#ifdef _WIN32
// after windows.h, whose types it uses
#include <shellapi.h>
#endif

namespace quillet {

std::vector<std::string> utf8Arguments([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#ifdef _WIN32
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

}  // namespace quillet
