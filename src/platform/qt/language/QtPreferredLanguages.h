#pragma once

#include "platform/PreferredLanguages.h"

namespace velmora {

/// The languages of the user's environment (`LANGUAGE`, `LC_ALL`, `LC_MESSAGES`, `LANG`, in this order), as
/// they are at construction: made before the program overrides its own language, it goes on telling the
/// user's.
class QtPreferredLanguages final : public PreferredLanguages {
public:
    QtPreferredLanguages();

    std::vector<std::string> tags() const override { return m_tags; }

private:
    std::vector<std::string> m_tags;
};

}  // namespace velmora
