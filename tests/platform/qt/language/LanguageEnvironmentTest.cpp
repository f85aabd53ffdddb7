#include "platform/qt/language/LanguageEnvironment.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class LanguageEnvironmentTest : public ::testing::Test {
protected:
    void SetUp() override { m_saved = qgetenv("LANGUAGE"); }
    void TearDown() override { m_saved.isNull() ? qunsetenv("LANGUAGE") : qputenv("LANGUAGE", m_saved); }

private:
    QByteArray m_saved;
};

TEST_F(LanguageEnvironmentTest, ChosenTagIsSetAsTheLibrariesSpellIt) {
    LanguageEnvironment environment;
    environment.choose("de");
    EXPECT_EQ(qgetenv("LANGUAGE"), "de");
    environment.choose("pt-BR");
    EXPECT_EQ(qgetenv("LANGUAGE"), "pt_BR");
    environment.choose("zh-Hans");
    EXPECT_EQ(qgetenv("LANGUAGE"), "zh_CN");
    environment.choose("zh-Hant");
    EXPECT_EQ(qgetenv("LANGUAGE"), "zh_TW");
}

TEST_F(LanguageEnvironmentTest, WithoutAChoiceTheUsersValueStandsAgain) {
    qputenv("LANGUAGE", "sv:de");
    LanguageEnvironment environment;
    environment.choose("fr");
    environment.choose(std::nullopt);
    EXPECT_EQ(qgetenv("LANGUAGE"), "sv:de");
}

TEST_F(LanguageEnvironmentTest, VariableThatWasUnsetIsUnsetAgain) {
    qunsetenv("LANGUAGE");
    LanguageEnvironment environment;
    environment.choose("fr");
    environment.choose(std::nullopt);
    EXPECT_FALSE(qEnvironmentVariableIsSet("LANGUAGE"));
}

}  // namespace
}  // namespace velmora
