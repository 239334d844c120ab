#include "id_header.h"

#include <map>
#include <set>
#include <sstream>

namespace icongen {

std::vector<DefinedIcon> ParseIconDefines(const std::string& headerText) {
    std::vector<DefinedIcon> defined;
    std::istringstream lines(headerText);
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string directive, name;
        int id = 0;
        if (words >> directive >> name >> id && directive == "#define" && name.rfind("IDI_", 0) == 0)
            defined.push_back({name, id});
    }
    return defined;
}

std::vector<std::string> CompareWithCatalog(const std::vector<DefinedIcon>& defined,
                                            const std::vector<IconEntry>& catalog) {
    std::vector<std::string> problems;
    std::map<std::string, int> drawn;
    std::set<int> drawnIds;
    for (const IconEntry& entry : catalog) {
        if (!drawn.emplace(entry.name, entry.id).second)
            problems.push_back(entry.name + " is drawn twice");
        if (!drawnIds.insert(entry.id).second)
            problems.push_back("id " + std::to_string(entry.id) + " is drawn twice");
    }
    std::set<std::string> declared;
    for (const DefinedIcon& icon : defined) {
        declared.insert(icon.name);
        const auto found = drawn.find(icon.name);
        if (found == drawn.end())
            problems.push_back(icon.name + " has no drawing");
        else if (found->second != icon.id)
            problems.push_back(icon.name + " is " + std::to_string(icon.id) + " in the header but " +
                               std::to_string(found->second) + " in the catalog");
    }
    for (const IconEntry& entry : catalog) {
        if (!declared.count(entry.name))
            problems.push_back(entry.name + " is drawn but not declared in the header");
    }
    return problems;
}

}  // namespace icongen
