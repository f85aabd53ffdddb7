#pragma once

#include <QWidget>

#include <string>

namespace velmora {

class Bundle;

/// The end of the first sidebar: the program's icon, name and version.
class SidebarFoot final : public QWidget {
public:
    explicit SidebarFoot(const Bundle& bundle, QWidget* parent = nullptr);

    /// "0.1.0" for a bundle that does not tell one.
    static std::string versionText(const Bundle& bundle);
};

}  // namespace velmora
