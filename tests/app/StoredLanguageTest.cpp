#include "app/StoredLanguage.h"

#include "fakes/FakeDefaults.h"
#include "platform/qt/language/LanguageEnvironment.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <string>
#include <vector>

namespace velmora {
namespace {

class StoredLanguageTest : public testing::Test {
protected:
    StoredLanguageTest() : m_saved(qgetenv("LANGUAGE")) { qputenv("LANGUAGE", "sv:de"); }
    ~StoredLanguageTest() override {
        m_saved.isNull() ? qunsetenv("LANGUAGE") : qputenv("LANGUAGE", m_saved);
    }

    void apply() {
        LanguageEnvironment environment;
        applyStoredLanguage(defaults, environment);
    }

    FakeDefaults defaults;

private:
    QByteArray m_saved;
};

TEST_F(StoredLanguageTest, ChosenLanguageBecomesTheOnlyOneOfThePlatform) {
    defaults.stored["languageCode"] = "pt-BR";
    defaults.stored["AppleLanguages"] = {"de", "fr"};
    apply();
    EXPECT_EQ(defaults.textArray("AppleLanguages"), std::vector<std::string>{"pt-BR"});
    EXPECT_EQ(qgetenv("LANGUAGE"), "pt_BR");
}

TEST_F(StoredLanguageTest, WithoutAChoiceTheOverrideGoesAndTheUsersEnvironmentStays) {
    defaults.stored["AppleLanguages"] = {"de"};
    apply();
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
    EXPECT_EQ(qgetenv("LANGUAGE"), "sv:de");
}

TEST_F(StoredLanguageTest, ChoiceOfAnotherTypeIsLikeNone) {
    defaults.stored["languageCode"] = 7;
    defaults.stored["AppleLanguages"] = {"de"};
    apply();
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
    EXPECT_EQ(qgetenv("LANGUAGE"), "sv:de");
}

TEST_F(StoredLanguageTest, TextThatIsNoneOfOurLanguagesLeavesTheEnvironment) {
    defaults.stored["languageCode"] = "xx";
    apply();
    EXPECT_EQ(defaults.textArray("AppleLanguages"), std::vector<std::string>{"xx"});
    EXPECT_EQ(qgetenv("LANGUAGE"), "sv:de");
}

TEST_F(StoredLanguageTest, EmptyTextIsCopiedAndLeavesTheEnvironment) {
    defaults.stored["languageCode"] = "";
    apply();
    EXPECT_EQ(defaults.textArray("AppleLanguages"), std::vector<std::string>{""});
    EXPECT_EQ(qgetenv("LANGUAGE"), "sv:de");
}

TEST_F(StoredLanguageTest, TheChoiceItselfStaysAsItIs) {
    defaults.stored["languageCode"] = "de";
    apply();
    EXPECT_EQ(defaults.writeCount("languageCode"), 0U);
}

}  // namespace
}  // namespace velmora
