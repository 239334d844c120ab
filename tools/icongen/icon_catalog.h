// Every icon the program uses: its resource id, the id's name in icon_ids.h and its drawing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "canvas.h"

namespace icongen {

struct IconEntry {
    int id;
    std::string name;  // the IDI_ constant
    std::function<void(Canvas&)> draw;
};

const std::vector<IconEntry>& IconCatalog();

// "IDI_CPU_LEVEL_6" -> "cpu_level_6.ico"
std::string IconFileName(const std::string& constantName);

}  // namespace icongen
