#include "string_table.h"
#include "resource_language.h"
#include "resource_lookup.h"
#include "string_block.h"

#include <vector>

namespace finch {

namespace {

struct LanguageBlock {
    LANGID language;
    StringBlock strings;
};

std::vector<LanguageBlock> LoadBlockInAllLanguages(HINSTANCE module, UINT block) {
    std::vector<LanguageBlock> copies;
    const wchar_t* name = MAKEINTRESOURCEW(block);
    for (LANGID language : ResourceLanguages(module, RT_STRING, name)) {
        const ResourceData data = LoadResourceData(module, RT_STRING, name, language);
        copies.push_back({language, ParseStringBlock(data.data, data.byteLength)});
    }
    return copies;
}

void AddBlock(StringTable& table, UINT block, const std::vector<LanguageBlock>& copies, LANGID wanted) {
    for (UINT slot = 0; slot < StringsPerBlock; ++slot) {
        std::vector<LANGID> languagesWithText;
        for (const LanguageBlock& copy : copies) {
            if (!copy.strings[slot].empty()) languagesWithText.push_back(copy.language);
        }
        const auto picked = PickResourceLanguage(wanted, languagesWithText);
        if (!picked) continue;
        for (const LanguageBlock& copy : copies) {
            if (copy.language == *picked) {
                table.emplace(FirstStringIdOf(block) + slot, copy.strings[slot]);
                break;
            }
        }
    }
}

}  // namespace

StringTable BuildStringTable(HINSTANCE module, LANGID wanted) {
    StringTable table;
    for (UINT block : StringBlockIds(module)) AddBlock(table, block, LoadBlockInAllLanguages(module, block), wanted);
    return table;
}

}  // namespace finch
