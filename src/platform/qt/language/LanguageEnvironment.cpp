#include "platform/qt/language/LanguageEnvironment.h"

namespace velmora {
namespace {

constexpr const char* kVariable = "LANGUAGE";

/// The name that the C library's catalogues know a language by. They tell the Chinese scripts by country.
QByteArray catalogueName(const std::string& tag) {
    if (tag == "zh-Hans") return "zh_CN";
    if (tag == "zh-Hant") return "zh_TW";
    return QByteArray::fromStdString(tag).replace('-', '_');
}

}  // namespace

LanguageEnvironment::LanguageEnvironment() {
    if (qEnvironmentVariableIsSet(kVariable)) m_users = qgetenv(kVariable);
}

void LanguageEnvironment::choose(const std::optional<std::string>& tag) {
    if (tag) {
        qputenv(kVariable, catalogueName(*tag));
    } else if (m_users) {
        qputenv(kVariable, *m_users);
    } else {
        qunsetenv(kVariable);
    }
}

}  // namespace velmora
