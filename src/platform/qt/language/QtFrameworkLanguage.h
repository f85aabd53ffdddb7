#pragma once

#include "platform/FrameworkLanguage.h"

#include <QString>
#include <QTranslator>

#include <memory>
#include <vector>

namespace velmora {

/// The toolkit's own texts (buttons of dialogs, edit menus), from its `qtbase_<language>.qm` files. Needs the
/// application object. A change reaches open windows at once.
class QtFrameworkLanguage final : public FrameworkLanguage {
public:
    /// `userTags` are the user's languages, best first; they count while no language is chosen, and where the
    /// chosen one has no file.
    explicit QtFrameworkLanguage(std::vector<std::string> userTags, QString folder = installedFolder());
    ~QtFrameworkLanguage() override;

    void setLanguage(const std::optional<std::string>& tag) override;

    /// Where the toolkit's translations are installed.
    static QString installedFolder();

private:
    enum class Search { found, missing };
    /// The texts stand in English in the toolkit itself, so English is found without a file.
    Search use(const std::string& tag);
    void install(std::unique_ptr<QTranslator> translator);

    std::vector<std::string> m_userTags;
    QString m_folder;
    std::unique_ptr<QTranslator> m_translator;
};

}  // namespace velmora
