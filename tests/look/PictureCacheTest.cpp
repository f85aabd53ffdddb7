#include "look/PictureCache.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

constexpr qsizetype kPictureBytes = 10 * 10 * 4;

QImage picture() {
    QImage picture(10, 10, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

TEST(PictureCache, GivesBackWhatWasInserted) {
    PictureCache cache(kPictureBytes);
    const QImage kept = picture();
    cache.insert({.drawing = 1, .pixels = 10, .color = 5}, kept);
    EXPECT_EQ(cache.find({.drawing = 1, .pixels = 10, .color = 5}).cacheKey(), kept.cacheKey());
}

TEST(PictureCache, KnowsDrawingSizeAndColourApart) {
    PictureCache cache(kPictureBytes);
    cache.insert({.drawing = 1, .pixels = 10, .color = 5}, picture());
    EXPECT_TRUE(cache.find({.drawing = 2, .pixels = 10, .color = 5}).isNull());
    EXPECT_TRUE(cache.find({.drawing = 1, .pixels = 11, .color = 5}).isNull());
    EXPECT_TRUE(cache.find({.drawing = 1, .pixels = 10, .color = 6}).isNull());
}

TEST(PictureCache, NeverHoldsMoreThanItsBytes) {
    PictureCache cache(3 * kPictureBytes);
    for (int pixels = 0; pixels < 100; ++pixels) {
        cache.insert({.drawing = 0, .pixels = pixels, .color = 0}, picture());
        EXPECT_LE(cache.bytes(), 3 * kPictureBytes);
    }
    EXPECT_EQ(cache.bytes(), 3 * kPictureBytes);
}

TEST(PictureCache, PictureThatWasNotAskedForLongestGoesFirst) {
    PictureCache cache(2 * kPictureBytes);
    cache.insert({.drawing = 1, .pixels = 10, .color = 0}, picture());
    cache.insert({.drawing = 2, .pixels = 10, .color = 0}, picture());
    cache.find({.drawing = 1, .pixels = 10, .color = 0});
    cache.insert({.drawing = 3, .pixels = 10, .color = 0}, picture());
    EXPECT_FALSE(cache.find({.drawing = 1, .pixels = 10, .color = 0}).isNull());
    EXPECT_TRUE(cache.find({.drawing = 2, .pixels = 10, .color = 0}).isNull());
}

TEST(PictureCache, PictureLargerThanTheCacheIsNotKept) {
    PictureCache cache(kPictureBytes - 1);
    cache.insert({.drawing = 1, .pixels = 10, .color = 0}, picture());
    EXPECT_EQ(cache.bytes(), 0);
}

}  // namespace
}  // namespace velmora
