#include "platform/qt/language/LanguageEnvironment.h"
#include "platform/qt/language/QtPreferredLanguages.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace velmora {
namespace {

/// Run by the cases below in a process of its own: the toolkit asks the environment once per process.
TEST(QtPreferredLanguagesChild, DISABLED_PrintsItsTags) {
    for (const std::string& tag : QtPreferredLanguages().tags()) {
        std::fputs(("tag=" + tag + "\n").c_str(), stdout);
    }
}

TEST(QtPreferredLanguagesChild, DISABLED_OverridesAndPrintsItsTags) {
    LanguageEnvironment environment;
    const QtPreferredLanguages preferred;
    environment.choose("ja");
    for (const std::string& tag : preferred.tags()) std::fputs(("tag=" + tag + "\n").c_str(), stdout);
}

std::vector<std::string> tagsPrintedBy(const char* testCase, const QString& language, const QString& locale) {
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) environment.remove(name);
    if (!language.isEmpty()) environment.insert("LANGUAGE", language);
    if (!locale.isEmpty()) environment.insert("LANG", locale);
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(),
                {"--gtest_also_run_disabled_tests",
                 QString("--gtest_filter=QtPreferredLanguagesChild.DISABLED_%1").arg(testCase)});
    EXPECT_TRUE(child.waitForFinished(30'000));
    std::vector<std::string> tags;
    for (const QByteArray& line : child.readAllStandardOutput().split('\n')) {
        if (line.startsWith("tag=")) tags.push_back(line.mid(4).toStdString());
    }
    return tags;
}

/// Which spellings follow the tag itself is the toolkit's business.
void expectFirst(const std::vector<std::string>& tags, const std::string& prefix) {
    ASSERT_FALSE(tags.empty());
    EXPECT_TRUE(tags[0].starts_with(prefix)) << tags[0];
}

TEST(QtPreferredLanguages, ListOfLanguagesIsInItsOrder) {
    const auto tags = tagsPrintedBy("PrintsItsTags", "sv_SE:de_DE:en", "en_US.UTF-8");
    expectFirst(tags, "sv");
    const auto firstOf = [&](const std::string& prefix) {
        return std::find_if(tags.begin(), tags.end(),
                            [&](const std::string& tag) { return tag.starts_with(prefix); });
    };
    EXPECT_LT(firstOf("sv"), firstOf("de"));
    EXPECT_LT(firstOf("de"), firstOf("en"));
    EXPECT_NE(firstOf("en"), tags.end());
}

TEST(QtPreferredLanguages, LocaleStandsInForTheList) {
    expectFirst(tagsPrintedBy("PrintsItsTags", "", "fr_FR.UTF-8"), "fr");
}

TEST(QtPreferredLanguages, ChineseOfTaiwanIsTold) {
    const auto tags = tagsPrintedBy("PrintsItsTags", "", "zh_TW.UTF-8");
    expectFirst(tags, "zh-");
    EXPECT_TRUE(tags[0].find("TW") != std::string::npos || tags[0].find("Hant") != std::string::npos)
        << tags[0];
}

TEST(QtPreferredLanguages, OverrideOfTheProgramDoesNotMaskTheUsersLanguages) {
    const auto tags = tagsPrintedBy("OverridesAndPrintsItsTags", "de_DE", "de_DE.UTF-8");
    expectFirst(tags, "de");
    for (const std::string& tag : tags) EXPECT_FALSE(tag.starts_with("ja")) << tag;
}

}  // namespace
}  // namespace velmora
