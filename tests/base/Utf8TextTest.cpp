#include "base/Utf8Text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace velmora {
namespace {

std::vector<char32_t> charactersOf(std::string_view text) {
    std::vector<char32_t> characters;
    while (!text.empty()) characters.push_back(takeCharacter(text));
    return characters;
}

TEST(Utf8Text, CharactersOfEveryLengthAreTaken) {
    EXPECT_EQ(charactersOf("a\u00e4\u20ac\U0001F600"),
              (std::vector<char32_t>{U'a', U'\u00e4', U'\u20ac', U'\U0001F600'}));
}

TEST(Utf8Text, ValidTextStaysAsItIs) {
    const std::string text = "Sicherung\u00e4 \uFFFD \U0001F600";
    EXPECT_EQ(validUtf8(text), text);
    EXPECT_EQ(validUtf8(""), "");
}

TEST(Utf8Text, ByteOfAnotherCharacterSetIsReplacedAlone) {
    EXPECT_EQ(validUtf8("M\xFCller"), "M\uFFFDller");
}

TEST(Utf8Text, SequenceCutAtTheEndIsReplaced) {
    EXPECT_EQ(validUtf8("a\xE2\x82"), "a\uFFFD\uFFFD");
}

TEST(Utf8Text, SequenceCutByALetterKeepsTheLetter) {
    EXPECT_EQ(validUtf8("\xE2\x82z"), "\uFFFD\uFFFDz");
}

TEST(Utf8Text, NeedlesslyLongSequenceIsReplaced) {
    EXPECT_EQ(validUtf8("\xC0\xAF"), "\uFFFD\uFFFD");
}

TEST(Utf8Text, ThreeByteFormOfAShorterCharacterIsReplaced) {
    EXPECT_EQ(validUtf8("\xE0\x80\xAF"), "\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8Text, HalfOfASurrogatePairIsReplaced) {
    EXPECT_EQ(validUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(Utf8Text, NumberAboveTheLastCharacterIsReplaced) {
    EXPECT_EQ(validUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

}  // namespace
}  // namespace velmora
