#pragma once

#include <array>

namespace quillet {

// The main window's menus: each heading with its items, by name and caption, in order. An item
// with no caption is a separator line.
struct MenuItem {
    const char* name;
    const char* caption;
};

struct Menu {
    MenuItem heading;
    std::array<MenuItem, 5> items;  // unused places have no name
};

inline constexpr std::array<Menu, 5> kMainMenus = {{
    {{"mnu_File", "File"},
     {{{"mnu_Select", "Select Video"},
       {"mnu_Deselect", "Reset App"},
       {"mnu_ShowCPU", "Show CPU "},
       {"mnu_Space00", ""},
       {"mnu_Exit", "Exit"}}}},
    {{"mnu_Compress", "Compress"},
     {{{"mnu_StartCompress", "Start Compression"}, {"mnu_StopCompress", "Stop Compression"}}}},
    {{"mnu_Tools", "Tools"},
     {{{"mnu_mp3Audio", "Encode Video Audio with libmp3lame"},
       {"mnu_DownScaleRes", "Down Scale Video Resolution"},
       {"mnu_AlterFPS", "Alter Video Frame Rate (fps)"},
       {"mnu_METAdata", "Write META Data Into Video"}}}},
    {{"mnu_Hlp", "Help"}, {{{"mnu_Help", "Help (PDF)"}}}},
    {{"mnu_About", "About"}, {{{"mnu_AboutThisApp", "About"}}}},
}};

}  // namespace quillet
