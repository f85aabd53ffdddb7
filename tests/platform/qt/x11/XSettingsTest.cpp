#include "platform/qt/x11/XSettings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora {
namespace {

/// The bytes as a settings manager writes them.
class SettingBytes {
public:
    enum class Order : std::uint8_t { littleEndian, bigEndian };

    explicit SettingBytes(Order order, std::uint32_t count) : m_order(order) {
        m_bytes.push_back(order == Order::bigEndian ? '\1' : '\0');
        m_bytes.append(3, '\0');
        number(7, 4);
        number(count, 4);
    }
    SettingBytes& text(std::string_view name, std::string_view value) {
        header(1, name);
        number(static_cast<std::uint32_t>(value.size()), 4);
        m_bytes += value;
        return pad();
    }
    SettingBytes& integer(std::string_view name, std::uint32_t value) {
        header(0, name);
        return number(value, 4);
    }
    SettingBytes& color(std::string_view name) {
        header(2, name);
        m_bytes.append(8, '\xFF');
        return *this;
    }
    SettingBytes& unknown(std::string_view name) {
        header(9, name);
        return *this;
    }
    const std::string& bytes() const { return m_bytes; }

private:
    void header(std::uint32_t type, std::string_view name) {
        number(type, 1);
        m_bytes.push_back('\0');
        number(static_cast<std::uint32_t>(name.size()), 2);
        m_bytes += name;
        pad();
        number(3, 4);
    }
    SettingBytes& number(std::uint32_t value, std::size_t size) {
        for (std::size_t index = 0; index < size; ++index) {
            const std::size_t place = m_order == Order::littleEndian ? index : size - 1 - index;
            m_bytes.push_back(static_cast<char>(value >> (8 * place)));
        }
        return *this;
    }
    SettingBytes& pad() {
        while (m_bytes.size() % 4 != 0) m_bytes.push_back('\0');
        return *this;
    }

    Order m_order;
    std::string m_bytes;
};

using Order = SettingBytes::Order;
constexpr auto kTheme = "Net/IconThemeName";

TEST(XSettings, TextIsFoundAmongTheOthersInEitherOrderOfBytes) {
    for (const Order order : {Order::littleEndian, Order::bigEndian}) {
        SettingBytes settings(order, 4);
        settings.integer("Xft/DPI", 98304)
            .color("Gtk/Color")
            .text("Net/ThemeName", "Adwaita")
            .text(kTheme, "Papirus");
        EXPECT_EQ(xSettingText(settings.bytes(), kTheme), "Papirus");
        EXPECT_EQ(xSettingText(settings.bytes(), "Net/ThemeName"), "Adwaita");
        EXPECT_EQ(xSettingText(settings.bytes(), "Net/Theme"), std::nullopt);
    }
}

TEST(XSettings, TextMayBeEmptyAndOfAnyLength) {
    for (const char* value : {"", "a", "ab", "abc", "abcd", "abcde"}) {
        SettingBytes settings(Order::littleEndian, 2);
        settings.text("Other", value).text(kTheme, value);
        EXPECT_EQ(xSettingText(settings.bytes(), kTheme), value);
    }
}

TEST(XSettings, SettingOfAnotherTypeIsNoText) {
    SettingBytes settings(Order::littleEndian, 1);
    settings.integer(kTheme, 1);
    EXPECT_EQ(xSettingText(settings.bytes(), kTheme), std::nullopt);
}

TEST(XSettings, NothingIsReadBehindAnUnknownType) {
    SettingBytes settings(Order::littleEndian, 2);
    settings.unknown("New").text(kTheme, "Papirus");
    EXPECT_EQ(xSettingText(settings.bytes(), kTheme), std::nullopt);
}

TEST(XSettings, NothingIsReadBeyondTheirNumber) {
    SettingBytes settings(Order::littleEndian, 1);
    settings.integer("Xft/DPI", 1).text(kTheme, "Papirus");
    EXPECT_EQ(xSettingText(settings.bytes(), kTheme), std::nullopt);
}

TEST(XSettings, CutBytesHoldNoText) {
    SettingBytes settings(Order::bigEndian, 2);
    settings.integer("Xft/DPI", 1).text(kTheme, "Papirus");
    for (std::size_t length = 0; length < settings.bytes().size(); ++length)
        EXPECT_EQ(xSettingText(settings.bytes().substr(0, length), kTheme), std::nullopt) << length;
}

TEST(XSettings, NumberOfSettingsThatIsTooLargeEndsWithTheBytes) {
    SettingBytes settings(Order::littleEndian, 0xFFFFFFFF);
    settings.text("Other", "x");
    EXPECT_EQ(xSettingText(settings.bytes(), kTheme), std::nullopt);
}

TEST(XSettings, UnknownOrderOfBytesIsNotRead) {
    SettingBytes settings(Order::littleEndian, 1);
    settings.text(kTheme, "Papirus");
    std::string bytes = settings.bytes();
    bytes[0] = '\2';
    EXPECT_EQ(xSettingText(bytes, kTheme), std::nullopt);
}

TEST(XSettings, WithoutAnXServerThereAreNone) {
    EXPECT_EQ(currentXSettingText(kTheme), std::nullopt);
}

}  // namespace
}  // namespace velmora
