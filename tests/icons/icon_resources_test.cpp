// Every icon id of icon_ids.h, loaded from this program's resources the way the program loads them.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "icon_id_names.h"
#include "icon_pixels.h"

namespace {

constexpr int kSizes[] = {16, 32};

uint32_t Alpha(uint32_t argb) { return argb >> 24; }

// Strongly coloured, opaque: the filled part of a level meter, not its grey panel.
bool IsVivid(uint32_t argb) {
    const int r = (argb >> 16) & 0xFF, g = (argb >> 8) & 0xFF, b = argb & 0xFF;
    return Alpha(argb) == 255 && std::max({r, g, b}) - std::min({r, g, b}) > 80;
}

class IconResources : public ::testing::Test {
protected:
    static IconPixels Pixels(int id, int size) {
        const UniqueIcon icon = LoadIconResource(id, size);
        return icon ? ReadIconPixels(icon.get()) : IconPixels{};
    }
};

TEST_F(IconResources, HeaderNamesDistinctIds) {
    std::set<int> numbers;
    for (const auto& icon : kIconIds) EXPECT_TRUE(numbers.insert(icon.id).second) << icon.id << " has two names";
}

TEST_F(IconResources, EveryIconHasItsOwnImageAtBothSizes) {
    for (const auto& icon : kIconIds) {
        for (int size : kSizes)
            EXPECT_EQ(NativeImageWidth(icon.id, size), size) << icon.name << " has no " << size << " px image";
    }
}

TEST_F(IconResources, NoIconIsBlankOrOneFlatColour) {
    for (const auto& icon : kIconIds) {
        for (int size : kSizes) {
            const IconPixels pixels = Pixels(icon.id, size);
            std::set<uint32_t> opaqueColours;
            for (uint32_t p : pixels.argb) {
                if (Alpha(p) == 255)
                    opaqueColours.insert(p & 0xFFFFFF);
            }
            EXPECT_GT(opaqueColours.size(), 1u) << icon.name << " at " << size << " px";
        }
    }
}

TEST_F(IconResources, EdgesAreSmoothedWithRealAlpha) {
    for (const auto& icon : kIconIds) {
        for (int size : kSizes) {
            const IconPixels pixels = Pixels(icon.id, size);
            const bool transparent = std::any_of(pixels.argb.begin(), pixels.argb.end(),
                                                 [](uint32_t p) { return Alpha(p) == 0; });
            const bool partial = std::any_of(pixels.argb.begin(), pixels.argb.end(), [](uint32_t p) {
                return Alpha(p) > 0 && Alpha(p) < 255;
            });
            EXPECT_TRUE(transparent) << icon.name << " at " << size << " px fills its whole square";
            EXPECT_TRUE(partial) << icon.name << " at " << size << " px has no anti-aliased edge";
        }
    }
}

TEST_F(IconResources, DifferentMeaningsHaveDifferentPictures) {
    for (int size : kSizes) {
        std::map<std::string, IconPixels> pictures;
        for (const auto& icon : kIconIds)
            pictures[icon.name] = Pixels(icon.id, size);
        for (auto a = pictures.begin(); a != pictures.end(); ++a) {
            for (auto b = std::next(a); b != pictures.end(); ++b)
                EXPECT_FALSE(a->second == b->second) << a->first << " and " << b->first << " look the same at " << size;
        }
    }
}

TEST_F(IconResources, CpuLevelPicturesFillUpWithTheLevel) {
    std::map<int, int> levelIds;
    const std::string prefix = "IDI_CPU_LEVEL_";
    for (const auto& icon : kIconIds) {
        if (const std::string name = icon.name; name.rfind(prefix, 0) == 0)
            levelIds[std::stoi(name.substr(prefix.size()))] = icon.id;
    }
    ASSERT_EQ(levelIds.size(), 11u);
    ASSERT_EQ(levelIds.begin()->first, 0);
    ASSERT_EQ(levelIds.rbegin()->first, 10);
    for (int size : kSizes) {
        long previous = -1;
        for (const auto& [level, id] : levelIds) {
            const IconPixels pixels = Pixels(id, size);
            const long filled = std::count_if(pixels.argb.begin(), pixels.argb.end(), IsVivid);
            if (level == 0)
                EXPECT_EQ(filled, 0) << "level 0 at " << size << " px shows a filled meter";
            else
                EXPECT_GT(filled, previous) << "level " << level << " at " << size << " px";
            previous = filled;
        }
    }
}

}  // namespace
