// Reads the "#define IDI_NAME number" lines of the icon id header, so the generator can prove
// that it draws every id the program names.
#pragma once

#include <string>
#include <vector>

#include "icon_catalog.h"

namespace icongen {

struct DefinedIcon {
    std::string name;
    int id;
};

std::vector<DefinedIcon> ParseIconDefines(const std::string& headerText);

// Problems found when comparing the header with the catalog; empty when they agree.
std::vector<std::string> CompareWithCatalog(const std::vector<DefinedIcon>& defined,
                                            const std::vector<IconEntry>& catalog);

}  // namespace icongen
