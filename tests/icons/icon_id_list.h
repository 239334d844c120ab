// The icon ids that icon_ids.h names, read from the header's text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct NamedIconId {
    std::string name;  // the IDI_ constant
    int id;
};

// Every "#define IDI_NAME number" line, in header order; other lines are ignored.
std::vector<NamedIconId> ParseIconIdHeader(std::string_view headerText);

// The header as embedded in this test program's resources (RCDATA "ICON_IDS_HEADER").
std::string LoadEmbeddedIconIdHeader();
