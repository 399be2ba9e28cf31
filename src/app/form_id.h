#pragma once

#include <array>
#include <cstddef>

namespace quillet {

// The program's windows, by name.
enum class FormId {
    Form1,
    Form2,
    Form3,
    Form4,
    Form5,
    Form6,
    Form7,
    Form8,
    Form9,
    Form10,
    Form11,
    Form13,
    Form14,
    Count
};

inline constexpr std::size_t kFormCount = static_cast<std::size_t>(FormId::Count);

// The windows that run a job or a tool: the reset of the main window unloads them, and so does the
// end of the program, before the others, so that their children are stopped first.
inline constexpr std::array kJobAndToolWindows = {FormId::Form5,  FormId::Form6, FormId::Form7,
                                                  FormId::Form8,  FormId::Form9, FormId::Form10,
                                                  FormId::Form11, FormId::Form13};

}  // namespace quillet
