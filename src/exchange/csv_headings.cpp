#include "exchange/csv_headings.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "exchange/csv_heading_table.h"
#include "model/text.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

// Of letters with accents, the plain one; "" for a letter that stays.
std::string_view PlainLetter(char32_t letter) noexcept {
  struct Letter {
    std::u32string_view accented;
    std::string_view plain;
  };
  constexpr Letter kLetters[] = {
      {U"\u00E0\u00E1\u00E2\u00E3\u00E4\u00E5\u0105", "a"},
      {U"\u00E7\u0107\u010D", "c"},
      {U"\u00E8\u00E9\u00EA\u00EB\u0119\u0117", "e"},
      {U"\u00EC\u00ED\u00EE\u00EF", "i"},
      {U"\u0142", "l"},
      {U"\u00F1\u0144", "n"},
      {U"\u00F2\u00F3\u00F4\u00F5\u00F6\u00F8", "o"},
      {U"\u015B\u0161", "s"},
      {U"\u00F9\u00FA\u00FB\u00FC", "u"},
      {U"\u017A\u017C\u017E", "z"},
      {U"\u00DF", "ss"},
  };
  for (const Letter& each : kLetters) {
    if (each.accented.find(letter) != std::u32string_view::npos) return each.plain;
  }
  return {};
}

constexpr std::string_view kCurrencies[] = {"eur", "euro", "euros", "usd", "gbp", "pln",
                                            "chf", "brl",  "czk",   "sek", "cad", "aud"};
constexpr std::string_view kJoiningWords[] = {"in", "en", "w"};

template <std::size_t size>
bool IsOneOf(std::string_view word, const std::string_view (&words)[size]) noexcept {
  return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

// Without currencies and the words before them, unless nothing else is there.
std::string WithoutCurrencies(const std::string& words) {
  std::string kept;
  std::string joining;
  std::string_view rest = words;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (IsOneOf(word, kCurrencies)) {
      joining.clear();
      continue;
    }
    kept += joining;
    joining.clear();
    if (IsOneOf(word, kJoiningWords)) {
      joining = (kept.empty() ? "" : " ") + std::string(word);
    } else {
      if (!kept.empty()) kept += ' ';
      kept += word;
    }
  }
  return kept.empty() ? words : kept + joining;
}

}  // namespace

std::string PlainHeading(std::string_view heading) {
  constexpr std::size_t kLongest = 100;
  if (heading.size() > kLongest) return {};
  const std::string folded = FoldCase(heading);
  std::string plain;
  bool is_apart = false;
  std::size_t parentheses = 0;
  for (std::string_view rest = folded; !rest.empty();) {
    const plist::Utf8Character next = plist::FirstUtf8Character(rest);
    const std::string_view letter = rest.substr(0, next.size);
    rest.remove_prefix(next.size);
    const char32_t code = next.code_point;
    if (code == U'(' || code == U'[') ++parentheses;
    if ((code == U')' || code == U']') && parentheses > 0) {
      --parentheses;
      is_apart = true;
      continue;
    }
    if (parentheses > 0) continue;
    const bool is_ascii = code < 0x80;
    const bool is_part = is_ascii ? (code >= U'a' && code <= U'z') || (code >= U'0' && code <= U'9')
                                  : PlainLetter(code) != "" || code >= 0x250;
    if (!is_part) {
      is_apart = true;
      continue;
    }
    if (is_apart && !plain.empty()) plain += ' ';
    is_apart = false;
    const std::string_view plain_letter = is_ascii ? std::string_view() : PlainLetter(code);
    plain += plain_letter.empty() ? letter : plain_letter;
  }
  return WithoutCurrencies(plain);
}

CsvField FieldOfHeading(std::string_view heading) {
  const std::string plain = PlainHeading(heading);
  if (plain.empty()) return CsvField::None;
  const auto found = std::find_if(std::begin(kCsvHeadings), std::end(kCsvHeadings),
                                  [&plain](const CsvHeading& each) { return each.plain == plain; });
  return found == std::end(kCsvHeadings) ? CsvField::None : found->field;
}

bool NamesBalance(std::string_view text, bool is_dated) {
  constexpr std::string_view kNames[] = {"balance",
                                         "opening balance",
                                         "closing balance",
                                         "beginning balance",
                                         "ending balance",
                                         "balance brought forward",
                                         "balance carried forward",
                                         "kontostand",
                                         "saldo",
                                         "anfangssaldo",
                                         "endsaldo",
                                         "alter kontostand",
                                         "neuer kontostand",
                                         "saldovortrag",
                                         "ubertrag",
                                         "solde",
                                         "solde initial",
                                         "solde final",
                                         "ancien solde",
                                         "nouveau solde",
                                         "saldo inicial",
                                         "saldo final",
                                         "saldo anterior",
                                         "saldo iniziale",
                                         "saldo finale",
                                         "beginsaldo",
                                         "eindsaldo",
                                         "saldo poczatkowe",
                                         "saldo koncowe",
                                         "tagessaldo"};
  // With a day, "Total" may be who was paid.
  constexpr std::string_view kSums[] = {"total", "totals", "summe",  "totale", "totaal",
                                        "suma",  "razem",  "gesamt", "sum"};
  constexpr std::size_t kLongest = 60;
  if (text.empty() || text.size() > kLongest) return false;
  std::string plain = PlainHeading(text);
  // A day may stand behind it, and a word that leads there.
  constexpr std::string_view kLeading[] = {"am", "per", "zum", "vom", "on",  "at", "al", "a",
                                           "au", "op",  "na",  "em",  "del", "du", "van"};
  while (!plain.empty() && (plain.back() == ' ' || (plain.back() >= '0' && plain.back() <= '9'))) {
    plain.pop_back();
  }
  const std::size_t space = plain.rfind(' ');
  if (space != std::string::npos && IsOneOf(std::string_view(plain).substr(space + 1), kLeading)) {
    plain.resize(space);
  }
  return IsOneOf(plain, kNames) || (!is_dated && IsOneOf(plain, kSums));
}

MarkMeaning MeaningOfMark(std::string_view text) {
  constexpr std::string_view kDebits[] = {
      "d",    "dr",          "debit",     "dbit",    "debits",     "s",
      "soll", "lastschrift", "belastung", "af",      "dare",       "cargo",
      "debe", "debito",      "addebito",  "w",       "wn",         "obciazenie",
      "out",  "ausgabe",     "uscita",    "depense", "withdrawal", "payment"};
  constexpr std::string_view kCredits[] = {
      "c",          "cr",  "credit",   "crdt",    "credits", "h",       "haben",
      "gutschrift", "bij", "avere",    "abono",   "haber",   "credito", "accredito",
      "uznanie",    "in",  "einnahme", "entrata", "recette", "deposit"};
  if (text == "-" || text == "\u2212") return MarkMeaning::Debit;
  if (text == "+") return MarkMeaning::Credit;
  constexpr std::size_t kLongest = 40;
  if (text.empty() || text.size() > kLongest) return MarkMeaning::None;
  const std::string plain = PlainHeading(text);
  if (IsOneOf(plain, kDebits)) return MarkMeaning::Debit;
  if (IsOneOf(plain, kCredits)) return MarkMeaning::Credit;
  return MarkMeaning::None;
}

bool SaysPending(std::string_view text) {
  constexpr std::string_view kPending[] = {
      "pending",   "authorized", "authorised",    "vorgemerkt", "offen",    "en attente",
      "pendiente", "in sospeso", "in afwachting", "oczekujaca", "pendente", "processing"};
  return IsOneOf(PlainHeading(text), kPending);
}

}  // namespace tallyfold
