#pragma once

#include "look/Scheme.h"

#include <QAccessible>
#include <QString>
#include <QWidget>

namespace velmora {

/// A part of a panel that is painted in light or dark and that a screen reader can name.
class KitWidget : public QWidget {
    Q_OBJECT
public:
    KitWidget(Scheme scheme, QWidget* parent);

    Scheme scheme() const { return m_scheme; }
    /// Goes on to the parts within.
    virtual void setScheme(Scheme scheme);
    /// Takes the place, and gives the parts within theirs at once, also while nothing is shown yet.
    void setPlace(const QRect& place);

    /// What a screen reader hears of the part.
    struct Spoken {
        QAccessible::Role role = QAccessible::StaticText;
        QString name;
        QString value;
    };
    virtual Spoken spoken() const = 0;

protected:
    /// Gives the parts within their places.
    virtual void layOut() {}
    /// Repaints, and tells screen readers that name and value may be others.
    void refresh();

private:
    Scheme m_scheme;
};

}  // namespace velmora
