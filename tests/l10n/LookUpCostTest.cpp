#include "fakes/AllocationCounter.h"
#include "fakes/AllocationHooks.h"
#include "fakes/FakeDefaults.h"
#include "fakes/FakeFrameworkLanguage.h"
#include "fakes/FakePreferredLanguages.h"
#include "l10n/L10n.h"
#include "l10n/LocalizationTables.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(L10nCost, LookUpAllocatesNothing) {
    FakeDefaults defaults;
    const FakePreferredLanguages preferred;
    FakeFrameworkLanguage framework;
    L10n l10n(defaults, preferred, framework);
    l10n.apply("de");
    static_cast<void>(l10n.string("mod.cpu"));
    const std::size_t before = allocationCount();
    ASSERT_GT(before, 0U) << "nothing is counted";
    for (const LocalizationEntry& row : LocalizationTables::entries(AppLanguage::en)) {
        static_cast<void>(l10n.string(row.key));
    }
    static_cast<void>(l10n.string("a.key.that.no.table.holds"));
    EXPECT_EQ(allocationCount(), before);
}

}  // namespace
}  // namespace velmora
