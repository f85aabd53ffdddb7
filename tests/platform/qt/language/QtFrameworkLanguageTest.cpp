#include "platform/qt/language/QtFrameworkLanguage.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QWidget>

#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

/// The toolkit's word for the button; English as it stands in the toolkit itself.
QString cancelButton() {
    return QCoreApplication::translate("QPlatformTheme", "Cancel");
}

/// The translations as the toolkit's package installs them.
class QtFrameworkLanguageTest : public ::testing::Test {
protected:
    void SetUp() override {
        const QString folder = QtFrameworkLanguage::installedFolder();
        // The package of translations is a run-time dependency, and a build machine may do without it.
        if (!QFile::exists(folder + "/qtbase_de.qm"))
            GTEST_SKIP() << "the toolkit's translations are not installed";
    }
    static void copy(const char* name, const TemporaryFolder& folder) { copyAs(name, name, folder); }
    /// The texts of one language under the file name of another.
    static void copyAs(const char* name, const char* copyName, const TemporaryFolder& folder) {
        std::filesystem::copy_file((QtFrameworkLanguage::installedFolder() + "/" + name).toStdString(),
                                   folder.path() / copyName);
    }
    static QString in(const TemporaryFolder& folder) {
        return QString::fromStdString(folder.path().native());
    }
};

TEST_F(QtFrameworkLanguageTest, ChosenLanguageIsSpoken) {
    QtFrameworkLanguage language({});
    language.setLanguage("de");
    EXPECT_EQ(cancelButton(), "Abbrechen");
    language.setLanguage("fr");
    EXPECT_EQ(cancelButton(), "Annuler");
}

TEST_F(QtFrameworkLanguageTest, EveryLanguageOfTheProgramHasTexts) {
    QtFrameworkLanguage language({});
    for (const char* tag :
         {"ja", "ko", "zh-Hans", "zh-Hant", "de", "fr", "es", "pt-BR", "ru", "it", "nl", "pl", "tr"}) {
        language.setLanguage(tag);
        EXPECT_NE(cancelButton(), "Cancel") << tag;
    }
}

TEST_F(QtFrameworkLanguageTest, ChineseScriptsAreToldApart) {
    QtFrameworkLanguage language({});
    const auto openIn = [&](const char* tag) {
        language.setLanguage(tag);
        return QCoreApplication::translate("QPlatformTheme", "Open");
    };
    const QString simplified = openIn("zh-Hans");
    const QString traditional = openIn("zh-Hant");
    EXPECT_NE(simplified, "Open");
    EXPECT_NE(simplified, traditional);
}

TEST_F(QtFrameworkLanguageTest, WithoutAChoiceTheUsersFirstLanguageWithTextsIsSpoken) {
    QtFrameworkLanguage language({"xx-XX", "de-DE", "fr-FR"});
    language.setLanguage("fr");
    language.setLanguage(std::nullopt);
    EXPECT_EQ(cancelButton(), "Abbrechen");
}

TEST_F(QtFrameworkLanguageTest, UserOfEnglishHearsEnglish) {
    QtFrameworkLanguage language({"en-US", "de-DE"});
    language.setLanguage("fr");
    language.setLanguage(std::nullopt);
    EXPECT_EQ(cancelButton(), "Cancel");
}

TEST_F(QtFrameworkLanguageTest, ChosenEnglishNeedsNoFile) {
    const TemporaryFolder folder;
    copy("qtbase_de.qm", folder);
    QtFrameworkLanguage language({"de-DE"}, in(folder));
    language.setLanguage(std::nullopt);
    EXPECT_EQ(cancelButton(), "Abbrechen");
    language.setLanguage("en");
    EXPECT_EQ(cancelButton(), "Cancel");
}

TEST_F(QtFrameworkLanguageTest, GermanWhereOnlyEnglishTextsExistIsAsIfNothingWereChosen) {
    const TemporaryFolder folder;
    copy("qtbase_en.qm", folder);
    QtFrameworkLanguage language({"en-US"}, in(folder));
    language.setLanguage(std::nullopt);
    const QString before = cancelButton();
    language.setLanguage("de");
    EXPECT_EQ(cancelButton(), before);
}

TEST_F(QtFrameworkLanguageTest, LanguageWithoutTextsFollowsTheUsersLanguages) {
    const TemporaryFolder folder;
    copy("qtbase_fr.qm", folder);
    QtFrameworkLanguage language({"fr-FR"}, in(folder));
    language.setLanguage("de");
    EXPECT_EQ(cancelButton(), "Annuler");
}

TEST_F(QtFrameworkLanguageTest, TagWithACountryTriesItselfAndThenItsLanguage) {
    const TemporaryFolder folder;
    copyAs("qtbase_fr.qm", "qtbase_pt.qm", folder);
    QtFrameworkLanguage language({}, in(folder));
    language.setLanguage("pt-BR");
    EXPECT_EQ(cancelButton(), "Annuler");
    copyAs("qtbase_de.qm", "qtbase_pt_BR.qm", folder);
    language.setLanguage("pt-BR");
    EXPECT_EQ(cancelButton(), "Abbrechen");
}

TEST_F(QtFrameworkLanguageTest, ChineseTriesItsScriptThenChineseThenTheCountryOfTheScript) {
    const TemporaryFolder folder;
    copyAs("qtbase_fr.qm", "qtbase_zh_CN.qm", folder);
    copyAs("qtbase_it.qm", "qtbase_zh_TW.qm", folder);
    QtFrameworkLanguage language({}, in(folder));
    language.setLanguage("zh-Hans");
    EXPECT_EQ(cancelButton(), "Annuler");
    copyAs("qtbase_de.qm", "qtbase_zh.qm", folder);
    language.setLanguage("zh-Hans");
    EXPECT_EQ(cancelButton(), "Abbrechen");
    copyAs("qtbase_es.qm", "qtbase_zh_Hans.qm", folder);
    language.setLanguage("zh-Hans");
    EXPECT_EQ(cancelButton(), "Cancelar");
}

TEST_F(QtFrameworkLanguageTest, EnglishTakesItsFileWhereThereIsOne) {
    const TemporaryFolder folder;
    copyAs("qtbase_de.qm", "qtbase_en.qm", folder);
    QtFrameworkLanguage language({}, in(folder));
    language.setLanguage("en");
    EXPECT_EQ(cancelButton(), "Abbrechen");
}

TEST_F(QtFrameworkLanguageTest, BrokenFileIsLikeNone) {
    const TemporaryFolder folder;
    folder.write("qtbase_de.qm", "no translations");
    QtFrameworkLanguage language({}, in(folder));
    language.setLanguage("de");
    EXPECT_EQ(cancelButton(), "Cancel");
}

TEST_F(QtFrameworkLanguageTest, DestructionGivesTheTextsBack) {
    {
        QtFrameworkLanguage language({});
        language.setLanguage("de");
    }
    EXPECT_EQ(cancelButton(), "Cancel");
}

TEST_F(QtFrameworkLanguageTest, OpenWindowsAreToldOfTheChange) {
    struct Window : QWidget {
        bool event(QEvent* event) override {
            if (event->type() == QEvent::LanguageChange) ++changes;
            return QWidget::event(event);
        }
        int changes = 0;
    } window;
    QtFrameworkLanguage language({});
    language.setLanguage("de");
    QCoreApplication::processEvents();
    EXPECT_GE(window.changes, 1);
}

}  // namespace
}  // namespace velmora
