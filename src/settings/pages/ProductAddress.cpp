#include "settings/pages/ProductAddress.h"

#include <QUrl>

namespace velmora::ProductAddress {

bool isValid(const std::string& address) {
    const QUrl url(QString::fromStdString(address), QUrl::StrictMode);
    const bool isWeb = url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http");
    return url.isValid() && isWeb && !url.host().isEmpty();
}

std::string shownText(const std::string& address) {
    constexpr std::string_view kAfterScheme = "://";
    const std::size_t scheme = address.find(kAfterScheme);
    std::string shown = scheme == std::string::npos ? address : address.substr(scheme + kAfterScheme.size());
    if (!shown.empty() && shown.find('/') == shown.size() - 1) shown.pop_back();
    return shown;
}

}  // namespace velmora::ProductAddress
