#include "app/AboutPanel.h"

#include "base/FormatText.h"
#include "l10n/L10n.h"
#include "look/ApplicationIcon.h"
#include "platform/Bundle.h"
#include "settings/pages/AboutTab.h"

#include <QMessageBox>
#include <QPointer>

namespace velmora {
namespace {

constexpr int kIcon = 64;

QString text(std::string_view words) {
    return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
}

}  // namespace

void showAboutPanel(const L10n& l10n, const Bundle& bundle) {
    static QPointer<QMessageBox> panel;
    if (!panel) {
        panel = new QMessageBox;
        panel->setAttribute(Qt::WA_DeleteOnClose);
        panel->setWindowTitle(text(l10n.string("menu.about")));
        panel->setWindowIcon(ApplicationIcon::icon());
        panel->setIconPixmap(ApplicationIcon::icon().pixmap(QSize(kIcon, kIcon), panel->devicePixelRatioF()));
        panel->setText("Velmora");
        const std::string version = formatText(l10n.string("about.version"), {AboutTab::versionText(bundle)});
        panel->setInformativeText(text(version) + "\n" + text(l10n.string("about.copyright")));
        panel->setStandardButtons(QMessageBox::Close);
    }
    panel->show();
    panel->raise();
    panel->activateWindow();
}

}  // namespace velmora
