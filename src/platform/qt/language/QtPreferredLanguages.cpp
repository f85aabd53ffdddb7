#include "platform/qt/language/QtPreferredLanguages.h"

#include <QLocale>
#include <QStringList>

namespace velmora {

QtPreferredLanguages::QtPreferredLanguages() {
    const QStringList languages = QLocale::system().uiLanguages();
    for (const QString& language : languages) m_tags.push_back(language.toStdString());
}

}  // namespace velmora
