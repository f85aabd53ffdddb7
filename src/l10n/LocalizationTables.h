#pragma once

#include "l10n/AppLanguage.h"
#include "l10n/LocalizationEntries.h"

#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>

/// The compiled-in texts as maps. Each map is built once, on first use by any thread, and never changes. Keys
/// and texts are views of constant data, so a look-up allocates nothing and its answer is valid for the run.
namespace velmora::LocalizationTables {

using Table = std::unordered_map<std::string_view, std::string_view>;
using Tables = std::unordered_map<AppLanguage, std::reference_wrapper<const Table>>;

const Table& en();
const Table& ja();
const Table& ko();
const Table& zhHans();
const Table& zhHant();
const Table& de();
const Table& fr();
const Table& es();
const Table& ptBR();
const Table& ru();
const Table& it();
const Table& nl();
const Table& pl();
const Table& tr();

/// All fourteen.
const Tables& tables();

/// The text under a key in a language's table, else in the English one; nothing if neither holds it.
std::optional<std::string_view> text(const Tables& tables, AppLanguage language, std::string_view key);

/// A map of the list's rows. A key that stands there twice ends the process: the data is compiled in, so it
/// can only be a mistake of ours.
Table makeTable(std::span<const LocalizationEntry> entries);
/// One table of a language, for `makeTables`.
struct LanguageTable {
    AppLanguage language;
    const Table& table;
};
/// A map of the tables. A language that stands there twice ends the process in the same way.
Tables makeTables(std::span<const LanguageTable> languages);
/// The rows of a language in their written order.
std::span<const LocalizationEntry> entries(AppLanguage language);

}  // namespace velmora::LocalizationTables
