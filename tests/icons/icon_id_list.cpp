#include "icon_id_list.h"

#include <windows.h>

#include <sstream>

std::vector<NamedIconId> ParseIconIdHeader(std::string_view headerText) {
    std::vector<NamedIconId> ids;
    std::istringstream lines{std::string(headerText)};
    std::string line;
    while (std::getline(lines, line)) {
        std::istringstream words(line);
        std::string directive, name;
        int id = 0;
        if (words >> directive >> name >> id && directive == "#define" && name.rfind("IDI_", 0) == 0)
            ids.push_back({name, id});
    }
    return ids;
}

std::string LoadEmbeddedIconIdHeader() {
    // Resource memory belongs to the module and needs no release.
    HRSRC found = FindResourceW(nullptr, L"ICON_IDS_HEADER", MAKEINTRESOURCEW(10));  // RT_RCDATA
    if (!found)
        return {};
    HGLOBAL loaded = LoadResource(nullptr, found);
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes)
        return {};
    return std::string(static_cast<const char*>(bytes), SizeofResource(nullptr, found));
}
