#include "look/Symbol.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QXmlStreamReader>

#include <map>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// Every symbol that some place of the program draws.
const std::vector<std::string> kNamesInUse = {
    // Shortcuts below the panels, and the picture of a program without one of its own.
    "waveform.path.ecg", "apple.terminal", "terminal.fill", "doc.text", "internaldrive", "sparkles", "wifi",
    "battery.100percent.bolt", "chart.bar.xaxis",
    // Pages of the settings, controls, and modules.
    "gearshape.fill", "gauge.with.dots.needle.67percent", "person.crop.circle.fill", "info.circle.fill",
    "cpu.fill", "memorychip.fill", "internaldrive.fill", "arrow.up.arrow.down", "thermometer.medium",
    "battery.75percent", "chevron.down", "checkmark",
    // First steps, account, and reports.
    "cursorarrow.click", "slider.horizontal.3", "location.circle", "bell", "hand.raised", "arrow.clockwise",
    "lock", "globe", "key", "envelope", "trash", "exclamationmark.triangle"};

struct Element {
    std::string name;
    std::map<std::string, std::string> attributes;

    bool operator==(const Element&) const = default;
};

QDir folder() {
    return {QStringLiteral(VELMORA_SOURCE_DIR "/resources/symbols")};
}

/// The drawing's elements in their order, the root first; empty if it is no well-formed XML.
std::vector<Element> elementsOf(const std::string& name) {
    QFile file(folder().filePath(QString::fromStdString(name + ".svg")));
    if (!file.open(QIODevice::ReadOnly)) return {};
    std::vector<Element> elements;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        Element element{.name = reader.name().toString().toStdString(), .attributes = {}};
        for (const QXmlStreamAttribute& attribute : reader.attributes())
            element.attributes[attribute.name().toString().toStdString()] =
                attribute.value().toString().toStdString();
        elements.push_back(element);
    }
    return reader.hasError() ? std::vector<Element>() : elements;
}

/// The shape that a drawing begins with, whether or not it is filled.
Element outline(const std::string& name) {
    const std::vector<Element> elements = elementsOf(name);
    if (elements.size() < 2) return {};
    Element outline = elements[1];
    outline.attributes.erase("fill");
    return outline;
}

TEST(SymbolDrawings, EveryNameInUseHasADrawingAndNothingElseHas) {
    std::vector<std::string> files;
    for (const QString& file : folder().entryList(QDir::Files | QDir::Hidden))
        files.push_back(file.toStdString());
    std::vector<std::string> expected;
    for (const std::string& name : kNamesInUse) expected.push_back(name + ".svg");
    EXPECT_THAT(files, testing::UnorderedElementsAreArray(expected));
}

TEST(SymbolDrawings, ProgramKnowsExactlyTheNamesInUse) {
    EXPECT_THAT(Symbol::names(), testing::UnorderedElementsAreArray(kNamesInUse));
    EXPECT_THAT(Symbol::names(), testing::WhenSorted(testing::ElementsAreArray(Symbol::names())));
    for (const std::string& name : kNamesInUse) EXPECT_TRUE(Symbol::exists(name)) << name;
}

TEST(SymbolDrawings, AllAreSquaresOfTwentyFour) {
    for (const std::string& name : kNamesInUse) {
        const std::vector<Element> elements = elementsOf(name);
        ASSERT_FALSE(elements.empty()) << name;
        EXPECT_EQ(elements[0].name, "svg");
        EXPECT_EQ(elements[0].attributes.at("viewBox"), "0 0 24 24") << name;
    }
}

TEST(SymbolDrawings, StrokesHaveOneWeightWithRoundCapsAndJoins) {
    for (const std::string& name : kNamesInUse) {
        const std::vector<Element> elements = elementsOf(name);
        ASSERT_GE(elements.size(), 2U) << name;
        EXPECT_EQ(elements[0].attributes.at("stroke-width"), "2") << name;
        EXPECT_EQ(elements[0].attributes.at("stroke-linecap"), "round") << name;
        EXPECT_EQ(elements[0].attributes.at("stroke-linejoin"), "round") << name;
        for (std::size_t i = 1; i < elements.size(); ++i) {
            for (const char* own :
                 {"stroke-width", "stroke-linecap", "stroke-linejoin", "style", "transform"})
                EXPECT_FALSE(elements[i].attributes.contains(own)) << name << " has its own " << own;
        }
    }
}

TEST(SymbolDrawings, InkIsBlackAndWhiteTakesItAway) {
    for (const std::string& name : kNamesInUse) {
        for (const Element& element : elementsOf(name)) {
            for (const char* paint : {"fill", "stroke"}) {
                const auto found = element.attributes.find(paint);
                if (found == element.attributes.end()) continue;
                EXPECT_THAT(found->second, testing::AnyOf("#000", "#fff", "none")) << name;
            }
            // Without a stroke a shape would have sharp corners.
            EXPECT_TRUE(!element.attributes.contains("stroke") || element.attributes.at("stroke") != "none")
                << name;
        }
    }
}

TEST(SymbolDrawings, NoDrawingTouchesTheEdgeOfItsSquare) {
    for (const std::string_view name : Symbol::names()) {
        const QImage picture = Symbol::image(name, 240, Qt::black, 1);
        ASSERT_FALSE(picture.isNull()) << name;
        const QImage inside = picture.copy(picture.rect().adjusted(1, 1, -1, -1));
        QImage framed(picture.size(), picture.format());
        framed.fill(Qt::transparent);
        for (int y = 0; y < inside.height(); ++y) {
            for (int x = 0; x < inside.width(); ++x) framed.setPixel(x + 1, y + 1, inside.pixel(x, y));
        }
        EXPECT_EQ(picture, framed) << name;
    }
}

TEST(SymbolDrawings, NoTwoLookTheSame) {
    std::vector<QImage> pictures;
    for (const std::string_view name : Symbol::names()) {
        const QImage picture = Symbol::image(name, 13, Qt::black, 1);
        EXPECT_THAT(pictures, testing::Not(testing::Contains(picture))) << name;
        pictures.push_back(picture);
    }
}

TEST(SymbolDrawings, FilledOnesShareTheOutlineOfTheirSiblings) {
    EXPECT_EQ(outline("internaldrive.fill"), outline("internaldrive"));
    EXPECT_EQ(outline("terminal.fill"), outline("apple.terminal"));
    EXPECT_EQ(outline("battery.100percent.bolt"), outline("battery.75percent"));
}

}  // namespace
}  // namespace velmora
