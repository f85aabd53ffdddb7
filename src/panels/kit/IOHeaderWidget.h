#pragma once

#include "panels/kit/KitWidget.h"

#include <string>
#include <vector>

namespace velmora {

/// The title of a list of processes, and the names of its columns.
class IOHeaderWidget final : public KitWidget {
public:
    IOHeaderWidget(Scheme scheme, QWidget* parent);

    void setTexts(const std::string& title, const std::vector<std::string>& columns);
    int heightForWidth(int width) const override;
    Spoken spoken() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_title;
    std::vector<std::string> m_columns;
};

}  // namespace velmora
