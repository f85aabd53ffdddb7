#include "platform/qt/language/QtFrameworkLanguage.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace velmora {
namespace {

/// The endings of file names to try for a tag, best first: the whole tag, then with parts cut off its end.
/// The toolkit tells the Chinese scripts by country.
QStringList endingsFor(const std::string& tag) {
    const QString whole = QString::fromStdString(tag).replace(u'-', u'_');
    QStringList endings;
    for (QString ending = whole; !ending.isEmpty();
         ending = ending.left(std::max(0, int(ending.lastIndexOf(u'_'))))) {
        endings.append(ending);
    }
    if (whole.startsWith(u"zh", Qt::CaseInsensitive)) {
        bool isTraditional = false;
        for (const char* mark : {"hant", "tw", "hk", "mo"}) {
            isTraditional = isTraditional || whole.contains(QLatin1String(mark), Qt::CaseInsensitive);
        }
        endings.append(isTraditional ? QStringLiteral("zh_TW") : QStringLiteral("zh_CN"));
    }
    return endings;
}

}  // namespace

QtFrameworkLanguage::QtFrameworkLanguage(std::vector<std::string> userTags, QString folder)
    : m_userTags(std::move(userTags)), m_folder(std::move(folder)) {}

QtFrameworkLanguage::~QtFrameworkLanguage() {
    install(nullptr);
}

QString QtFrameworkLanguage::installedFolder() {
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
}

void QtFrameworkLanguage::setLanguage(const std::optional<std::string>& tag) {
    if (tag && use(*tag) == Search::found) return;
    for (const std::string& userTag : m_userTags) {
        if (use(userTag) == Search::found) return;
    }
    install(nullptr);
}

QtFrameworkLanguage::Search QtFrameworkLanguage::use(const std::string& tag) {
    for (const QString& ending : endingsFor(tag)) {
        const QString file = m_folder + QStringLiteral("/qtbase_") + ending + QStringLiteral(".qm");
        if (!QFile::exists(file)) continue;
        auto translator = std::make_unique<QTranslator>();
        if (!translator->load(file)) continue;
        install(std::move(translator));
        return Search::found;
    }
    if (!tag.starts_with("en")) return Search::missing;
    install(nullptr);
    return Search::found;
}

void QtFrameworkLanguage::install(std::unique_ptr<QTranslator> translator) {
    if (m_translator && QCoreApplication::instance() != nullptr)
        QCoreApplication::removeTranslator(m_translator.get());
    m_translator = std::move(translator);
    // The file of a language may be empty of texts, as the one of English is; such a translator cannot be
    // installed.
    if (m_translator && QCoreApplication::instance() != nullptr)
        QCoreApplication::installTranslator(m_translator.get());
}

}  // namespace velmora
