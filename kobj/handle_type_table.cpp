#include "kobj/handle_type_table.h"

namespace lmvx::kobj {

namespace {

struct TypeImage {
    std::wstring_view type;
    int image;
};
struct TypeIcon {
    std::wstring_view type;
    unsigned short icon;
};

// The lists test the types in this order and the detail pane in alphabetical order; no name matches two
// types, so the two orders only differ in cost.
constexpr TypeImage kListOrder[] = {
    {L"File", 1},    {L"IoCompletion", 1}, {L"Thread", 2}, {L"Process", 3}, {L"Key", 4},  {L"Mutant", 5},
    {L"Directory", 6}, {L"Event", 7},      {L"Token", 8},  {L"Section", 9}, {L"Port", 10},
};
constexpr TypeIcon kDetailOrder[] = {
    {L"Directory", 253}, {L"Event", 249},   {L"File", 248},    {L"IoCompletion", 248}, {L"Key", 262},
    {L"Port", 252},      {L"Process", 247}, {L"Section", 251}, {L"Thread", 233},       {L"Token", 250},
};
constexpr unsigned short kGenericIcon = 193;

}  // namespace

int HandleTypeImageIndex(std::wstring_view type) {
    for (const TypeImage& entry : kListOrder) {
        if (entry.type == type) return entry.image;
    }
    return 0;
}

unsigned short HandleTypeIconId(std::wstring_view type) {
    for (const TypeIcon& entry : kDetailOrder) {
        if (entry.type == type) return entry.icon;
    }
    return kGenericIcon;
}

}  // namespace lmvx::kobj
