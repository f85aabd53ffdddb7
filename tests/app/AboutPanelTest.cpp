#include "app/AboutPanel.h"

#include "fakes/FakeBundle.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakePreferredLanguages.h"
#include "l10n/L10n.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>

#include <memory>

namespace velmora {
namespace {

class AboutPanelTest : public testing::Test {
protected:
    ~AboutPanelTest() override {
        for (QMessageBox* panel : panels()) delete panel;
    }
    QList<QMessageBox*> panels() const {
        QList<QMessageBox*> found;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* const panel = qobject_cast<QMessageBox*>(widget)) found.append(panel);
        }
        return found;
    }

    FakeDefaults defaults;
    FakePreferredLanguages preferredLanguages;
    FakeFrameworkLanguage framework;
    FakeBundle bundle;
    L10n l10n{defaults, preferredLanguages, framework};
};

TEST_F(AboutPanelTest, SaysWhatTheProgramIsInTheChosenLanguage) {
    l10n.apply("de");
    showAboutPanel(l10n, bundle);
    ASSERT_EQ(panels().size(), 1);
    const QMessageBox& panel = *panels().front();
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(panel.windowTitle(), "Über Velmora");
    EXPECT_EQ(panel.text(), "Velmora");
    EXPECT_TRUE(panel.informativeText().startsWith("Version 0.1.0 (dev)\n")) << "nothing tells the version";
    EXPECT_FALSE(panel.iconPixmap().isNull());
}

TEST_F(AboutPanelTest, AskedForTwiceThereIsOne) {
    showAboutPanel(l10n, bundle);
    showAboutPanel(l10n, bundle);
    EXPECT_EQ(panels().size(), 1);
}

}  // namespace
}  // namespace velmora
