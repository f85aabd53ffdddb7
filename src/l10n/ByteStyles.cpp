// Byte totals in the interface's languages. The unit symbols are the capital ones that file managers show
// ("KB", not the "kB" of the SI). The French octet and the Russian байт give them their own letters. The gap
// is a no-break space where the locale data (CLDR) has one in its digital units: always in French, now and
// then in German, which has it throughout here so that all figures of a column break alike.

#include "l10n/ByteStyles.h"

namespace velmora {
namespace {

constexpr auto kLatinUnits = kEnglishByteStyle.unitNames;

/// For languages whose nouns do not change after a number.
constexpr ByteForm onlyForm(int /*count*/) {
    return ByteForm::many;
}

/// 2 to 4 at the end, unless the number ends in 12 to 14.
constexpr bool endsInFew(int count) {
    const int last = count % 10;
    const int lastTwo = count % 100;
    return last >= 2 && last <= 4 && (lastTwo < 12 || lastTwo > 14);
}

/// In Russian 21 takes the form of 1, while 11 does not.
constexpr ByteForm russianForm(int count) {
    if (count % 10 == 1 && count % 100 != 11) return ByteForm::one;
    return endsInFew(count) ? ByteForm::few : ByteForm::many;
}

/// In Polish nothing but 1 takes the form of 1.
constexpr ByteForm polishForm(int count) {
    if (count == 1) return ByteForm::one;
    return endsInFew(count) ? ByteForm::few : ByteForm::many;
}

constexpr ByteStyle kJapanese = {
    .decimalSeparator = ".",
    .zero = "ゼロ KB",
    .byteGap = " ",
    .byteNames = {"バイト", "バイト", "バイト"},
    .byteForm = onlyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kKorean = {
    .decimalSeparator = ".",
    .zero = "0KB",
    .byteGap = "",
    .byteNames = {"바이트", "바이트", "바이트"},
    .byteForm = onlyForm,
    .unitGap = "",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kSimplifiedChinese = {
    .decimalSeparator = ".",
    .zero = "零 KB",
    .byteGap = " ",
    .byteNames = {"字节", "字节", "字节"},
    .byteForm = onlyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kTraditionalChinese = {
    .decimalSeparator = ".",
    .zero = "零 KB",
    .byteGap = " ",
    .byteNames = {"位元組", "位元組", "位元組"},
    .byteForm = onlyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kGerman = {
    .decimalSeparator = ",",
    .zero = "Null\u00A0KB",
    .byteGap = "\u00A0",
    .byteNames = {"Byte", "Byte", "Byte"},
    .byteForm = onlyForm,
    .unitGap = "\u00A0",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kFrench = {
    .decimalSeparator = ",",
    .zero = "Zéro\u00A0Ko",
    .byteGap = "\u00A0",
    .byteNames = {"octet", "octets", "octets"},
    .byteForm = oneOrManyForm,
    .unitGap = "\u00A0",
    .unitNames = {"Ko", "Mo", "Go", "To", "Po", "Eo"},
};
constexpr ByteStyle kSpanish = {
    .decimalSeparator = ",",
    .zero = "Cero KB",
    .byteGap = " ",
    .byteNames = {"byte", "bytes", "bytes"},
    .byteForm = oneOrManyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kBrazilianPortuguese = {
    .decimalSeparator = ",",
    .zero = "Zero KB",
    .byteGap = " ",
    .byteNames = {"byte", "bytes", "bytes"},
    .byteForm = oneOrManyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kRussian = {
    .decimalSeparator = ",",
    .zero = "Ноль КБ",
    .byteGap = " ",
    .byteNames = {"байт", "байта", "байт"},
    .byteForm = russianForm,
    .unitGap = " ",
    .unitNames = {"КБ", "МБ", "ГБ", "ТБ", "ПБ", "ЭБ"},
};
constexpr ByteStyle kItalian = {
    .decimalSeparator = ",",
    .zero = "Zero KB",
    .byteGap = " ",
    .byteNames = {"byte", "byte", "byte"},
    .byteForm = onlyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kDutch = {
    .decimalSeparator = ",",
    .zero = "Nul KB",
    .byteGap = " ",
    .byteNames = {"byte", "byte", "byte"},
    .byteForm = onlyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kPolish = {
    .decimalSeparator = ",",
    .zero = "Zero KB",
    .byteGap = " ",
    .byteNames = {"bajt", "bajty", "bajtów"},
    .byteForm = polishForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};
constexpr ByteStyle kTurkish = {
    .decimalSeparator = ",",
    .zero = "Sıfır KB",
    .byteGap = " ",
    .byteNames = {"bayt", "bayt", "bayt"},
    .byteForm = onlyForm,
    .unitGap = " ",
    .unitNames = kLatinUnits,
};

}  // namespace

const ByteStyle& byteStyle(AppLanguage language) {
    // No default: the compiler names a language that has no style.
    switch (language) {
        case AppLanguage::en:
            return kEnglishByteStyle;
        case AppLanguage::ja:
            return kJapanese;
        case AppLanguage::ko:
            return kKorean;
        case AppLanguage::zhHans:
            return kSimplifiedChinese;
        case AppLanguage::zhHant:
            return kTraditionalChinese;
        case AppLanguage::de:
            return kGerman;
        case AppLanguage::fr:
            return kFrench;
        case AppLanguage::es:
            return kSpanish;
        case AppLanguage::ptBR:
            return kBrazilianPortuguese;
        case AppLanguage::ru:
            return kRussian;
        case AppLanguage::it:
            return kItalian;
        case AppLanguage::nl:
            return kDutch;
        case AppLanguage::pl:
            return kPolish;
        case AppLanguage::tr:
            return kTurkish;
    }
    return kEnglishByteStyle;
}

}  // namespace velmora
