#include "l10n/L10n.h"

#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakePreferredLanguages.h"
#include "l10n/LocalizationTables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

class L10nTest : public ::testing::Test {
protected:
    using Calls = std::vector<std::optional<std::string>>;

    void store(const nlohmann::json& code) { defaults.stored["languageCode"] = code; }

    FakeDefaults defaults;
    FakePreferredLanguages preferred{{"fr-FR"}};
    FakeFrameworkLanguage framework;
    L10n l10n{defaults, preferred, framework};
};

TEST_F(L10nTest, LanguageIsEnglishBeforeBootstrap) {
    store("de");
    EXPECT_EQ(l10n.language().get(), AppLanguage::en);
    EXPECT_EQ(l10n.string("common.cancel"), "Cancel");
    EXPECT_TRUE(framework.calls.empty());
}

TEST_F(L10nTest, StoredChoiceIsApplied) {
    store("de");
    l10n.bootstrap();
    EXPECT_EQ(l10n.language().get(), AppLanguage::de);
    EXPECT_EQ(defaults.textArray("AppleLanguages"), std::vector<std::string>{"de"});
    EXPECT_EQ(framework.calls, (Calls{"de"}));
}

TEST_F(L10nTest, WithoutAStoredChoiceTheSystemsLanguageIsApplied) {
    l10n.bootstrap();
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
    EXPECT_EQ(framework.calls, (Calls{std::nullopt}));
}

TEST_F(L10nTest, EmptyStoredChoiceIsLikeNone) {
    store("");
    defaults.stored["AppleLanguages"] = {"de"};
    l10n.bootstrap();
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
    EXPECT_EQ(framework.calls, (Calls{std::nullopt}));
}

TEST_F(L10nTest, UnknownStoredChoiceFollowsTheSystemAndStaysStored) {
    store("xx");
    defaults.stored["AppleLanguages"] = {"de"};
    l10n.bootstrap();
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
    EXPECT_EQ(framework.calls, (Calls{std::nullopt}));
    EXPECT_EQ(defaults.text("languageCode"), "xx");
}

TEST_F(L10nTest, StoredChoiceOfAnotherTypeIsLikeNone) {
    store(7);
    l10n.bootstrap();
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
}

TEST_F(L10nTest, ChoosingSystemRemovesTheOverrideBeforeThePreferenceIsAsked) {
    // As a system does it: an override stands in front of the user's own languages.
    struct OverriddenLanguages final : PreferredLanguages {
        explicit OverriddenLanguages(const Defaults& store) : m_store(store) {}
        std::vector<std::string> tags() const override {
            auto tags = m_store.textArray("AppleLanguages").value_or(std::vector<std::string>());
            tags.emplace_back("ko-KR");
            return tags;
        }
        const Defaults& m_store;
    };
    const OverriddenLanguages overridden(defaults);
    L10n underTest(defaults, overridden, framework);
    underTest.apply("de");
    underTest.apply(std::nullopt);
    EXPECT_EQ(underTest.language().get(), AppLanguage::ko);
    EXPECT_EQ(framework.calls, (Calls{"de", std::nullopt}));
}

TEST_F(L10nTest, SameLanguageTwiceTellsTheObserversBothTimes) {
    std::vector<AppLanguage> seen;
    const auto subscription =
        l10n.language().subscribe([&](AppLanguage language) { seen.push_back(language); });
    l10n.apply("it");
    l10n.apply("it");
    EXPECT_EQ(seen, (std::vector{AppLanguage::en, AppLanguage::it, AppLanguage::it}));
}

TEST_F(L10nTest, OverrideAndFrameworkAreReadyWhenObserversAreTold) {
    std::size_t callsSeen = 0;
    bool overrideSeen = false;
    const auto subscription = l10n.language().subscribe([&](AppLanguage) {
        callsSeen = framework.calls.size();
        overrideSeen = defaults.contains("AppleLanguages");
    });
    l10n.apply("pl");
    EXPECT_EQ(callsSeen, 1u);
    EXPECT_TRUE(overrideSeen);
}

TEST_F(L10nTest, ApplyingDoesNotStoreTheChoice) {
    l10n.apply("de");
    EXPECT_FALSE(defaults.contains("languageCode"));
}

// What arrives from another machine is only stored, unlike a choice made in the picker, and waits for the
// next start.
TEST_F(L10nTest, LanguageThatIsOnlyStoredTakesEffectAtTheNextStart) {
    l10n.bootstrap();
    int timesTold = 0;
    const auto subscription = l10n.language().subscribe([&](AppLanguage) { ++timesTold; });
    store("de");
    defaults.changedOutside.fire();
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
    EXPECT_EQ(l10n.string("menu.quit"), LocalizationTables::fr().at("menu.quit"));
    EXPECT_EQ(timesTold, 1);  // At the subscription.
    EXPECT_EQ(framework.calls, (Calls{std::nullopt}));
    EXPECT_FALSE(defaults.contains("AppleLanguages"));

    L10n nextStart(defaults, preferred, framework);
    nextStart.bootstrap();
    EXPECT_EQ(nextStart.language().get(), AppLanguage::de);
    EXPECT_EQ(defaults.textArray("AppleLanguages"), std::vector<std::string>{"de"});
    EXPECT_EQ(framework.calls, (Calls{std::nullopt, "de"}));
}

TEST_F(L10nTest, StoredLanguageThatIsOnlyRemovedStaysUntilTheNextStart) {
    store("de");
    l10n.bootstrap();
    defaults.remove("languageCode");
    defaults.changedOutside.fire();
    EXPECT_EQ(l10n.language().get(), AppLanguage::de);
    EXPECT_EQ(defaults.textArray("AppleLanguages"), std::vector<std::string>{"de"});

    L10n nextStart(defaults, preferred, framework);
    nextStart.bootstrap();
    EXPECT_EQ(nextStart.language().get(), AppLanguage::fr);
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
}

TEST_F(L10nTest, UnknownTagAfterAKnownOneFollowsTheSystem) {
    l10n.apply("de");
    l10n.apply("xx");
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
    EXPECT_EQ(framework.calls, (Calls{"de", std::nullopt}));
}

TEST_F(L10nTest, TagIsMatchedExactly) {
    l10n.apply("DE");
    EXPECT_EQ(l10n.language().get(), AppLanguage::fr);
    EXPECT_FALSE(defaults.contains("AppleLanguages"));
}

TEST_F(L10nTest, SystemLanguageIsAskedAnewEachTime) {
    l10n.apply(std::nullopt);
    preferred.preferred = {"tr-TR"};
    l10n.apply(std::nullopt);
    EXPECT_EQ(l10n.language().get(), AppLanguage::tr);
}

TEST_F(L10nTest, TextIsOfThePresentLanguage) {
    for (const AppLanguage language : kAllLanguages) {
        l10n.apply(std::string(rawValue(language)));
        EXPECT_EQ(l10n.string("menu.quit"), LocalizationTables::tables().at(language).get().at("menu.quit"));
    }
}

TEST_F(L10nTest, KeyThatNoTableHoldsIsItsOwnTextInEveryLanguage) {
    for (const AppLanguage language : kAllLanguages) {
        l10n.apply(std::string(rawValue(language)));
        EXPECT_EQ(l10n.string("mod.gpu"), "mod.gpu");
        EXPECT_EQ(l10n.string(""), "");
    }
}

TEST_F(L10nTest, TextOfATableOutlivesTheKeysStorage) {
    l10n.apply("de");
    std::string key = "menu.quit";
    const std::string_view text = l10n.string(key);
    key.assign(key.size(), 'x');
    EXPECT_EQ(text, LocalizationTables::de().at("menu.quit"));
}

}  // namespace
}  // namespace velmora
