#include "l10n/LocalizationTables.h"

#include "model/ModuleStyle.h"
#include "model/StatsModule.h"
#include "model/TempCategory.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace velmora {
namespace {

TEST(LocalizationTables, ThereAreFourteen) {
    EXPECT_EQ(LocalizationTables::tables().size(), 14u);
    for (const AppLanguage language : kAllLanguages) {
        EXPECT_TRUE(LocalizationTables::tables().contains(language)) << rawValue(language);
    }
}

TEST(LocalizationTables, EachIsTheConstantOfItsLanguage) {
    const std::array<const LocalizationTables::Table*, 14> constants = {
        &LocalizationTables::en(),     &LocalizationTables::ja(),     &LocalizationTables::ko(),
        &LocalizationTables::zhHans(), &LocalizationTables::zhHant(), &LocalizationTables::de(),
        &LocalizationTables::fr(),     &LocalizationTables::es(),     &LocalizationTables::ptBR(),
        &LocalizationTables::ru(),     &LocalizationTables::it(),     &LocalizationTables::nl(),
        &LocalizationTables::pl(),     &LocalizationTables::tr()};
    for (std::size_t index = 0; index < kAllLanguages.size(); ++index) {
        EXPECT_EQ(&LocalizationTables::tables().at(kAllLanguages[index]).get(), constants[index]);
    }
}

TEST(LocalizationTables, EachHoldsEveryRowOfItsList) {
    for (const AppLanguage language : kAllLanguages) {
        const auto rows = LocalizationTables::entries(language);
        const LocalizationTables::Table& table = LocalizationTables::tables().at(language);
        EXPECT_EQ(table.size(), rows.size());
        for (const LocalizationEntry& row : rows) EXPECT_EQ(table.at(row.key), row.text);
    }
}

TEST(LocalizationTables, AllListsHaveTheSameKeysInTheSameOrder) {
    const auto english = LocalizationTables::entries(AppLanguage::en);
    for (const AppLanguage language : kAllLanguages) {
        const auto rows = LocalizationTables::entries(language);
        ASSERT_EQ(rows.size(), english.size()) << rawValue(language);
        for (std::size_t index = 0; index < rows.size(); ++index) {
            EXPECT_EQ(rows[index].key, english[index].key) << rawValue(language) << " row " << index;
        }
    }
}

TEST(LocalizationTables, KeysThatAreFormedAtRunTimeExist) {
    const LocalizationTables::Table& table = LocalizationTables::en();
    for (const StatsModule module : kAllModules) {
        EXPECT_TRUE(table.contains("mod." + std::string(rawValue(module)))) << rawValue(module);
        EXPECT_TRUE(table.contains("mod." + std::string(rawValue(module)) + "Sub")) << rawValue(module);
        for (const ModuleMetric& metric : metrics(module)) EXPECT_TRUE(table.contains(metric.labelKey));
    }
    for (const ModuleStyle style : kAllStyles) {
        EXPECT_TRUE(table.contains("style." + std::string(rawValue(style)))) << rawValue(style);
    }
    for (const TempCategory category : kAllTempCategories) {
        EXPECT_TRUE(table.contains("temp." + std::string(rawValue(category)))) << rawValue(category);
    }
    for (const char* tab : {"general", "modules", "account", "about"}) {
        EXPECT_TRUE(table.contains("tab." + std::string(tab)));
        EXPECT_TRUE(table.contains("sub." + std::string(tab)));
    }
}

class FallThrough : public ::testing::Test {
protected:
    using Table = LocalizationTables::Table;

    Table english{{"menu.quit", "Quit"}, {"menu.about", "About"}};
    Table german{{"menu.quit", "Beenden"}, {"menu.new", "Neu"}};
    LocalizationTables::Tables tables{{AppLanguage::en, english}, {AppLanguage::de, german}};
};

TEST_F(FallThrough, TextOfTheLanguageComesFirst) {
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::de, "menu.quit"), "Beenden");
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::en, "menu.quit"), "Quit");
}

TEST_F(FallThrough, KeyThatTheLanguageLacksHasTheEnglishText) {
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::de, "menu.about"), "About");
}

TEST_F(FallThrough, LanguageWithoutATableHasTheEnglishTexts) {
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::fr, "menu.quit"), "Quit");
}

TEST_F(FallThrough, KeyOfAnotherLanguageAloneHasNoText) {
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::en, "menu.new"), std::nullopt);
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::fr, "menu.new"), std::nullopt);
}

TEST_F(FallThrough, KeyThatNoTableHoldsHasNoText) {
    EXPECT_EQ(LocalizationTables::text(tables, AppLanguage::de, "menu"), std::nullopt);
    EXPECT_EQ(LocalizationTables::text({}, AppLanguage::de, "menu.quit"), std::nullopt);
}

TEST(LocalizationTables, FirstUseFromManyThreadsBuildsOneMap) {
    std::array<const LocalizationTables::Tables*, 8> seen{};
    std::vector<std::thread> threads;
    for (auto& slot : seen) threads.emplace_back([&slot] { slot = &LocalizationTables::tables(); });
    for (std::thread& thread : threads) thread.join();
    for (const auto* tables : seen) EXPECT_EQ(tables, seen[0]);
}

TEST(LocalizationTablesDeathTest, KeyThatOccursTwiceStopsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::array rows = {LocalizationEntry{"mod.cpu", "CPU"}, LocalizationEntry{"mod.disk", "Disk"},
                             LocalizationEntry{"mod.cpu", "Processor"}};
    EXPECT_DEATH(LocalizationTables::makeTable(rows), "duplicate entry in the string tables: mod.cpu");
}

TEST(LocalizationTablesDeathTest, LanguageThatOccursTwiceStopsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    using LocalizationTables::LanguageTable;
    const std::array languages = {LanguageTable{AppLanguage::de, LocalizationTables::de()},
                                  LanguageTable{AppLanguage::fr, LocalizationTables::fr()},
                                  LanguageTable{AppLanguage::de, LocalizationTables::en()}};
    EXPECT_DEATH(LocalizationTables::makeTables(languages), "duplicate entry in the string tables: de");
}

}  // namespace
}  // namespace velmora
