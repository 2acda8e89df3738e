#include "app/help/manual_page.h"

#include <cctype>

#include "app/help/guide.h"

namespace tallyfold {
namespace {

// What the guide in the window need not say.
constexpr std::string_view kHead =
    "\" \"User Commands\"\n"
    ".SH NAME\ntallyfold \\- personal bank accounts, kept as a check register\n"
    ".SH SYNOPSIS\n.B tallyfold\n[\n.I FILE\n]\n"
    ".SH DESCRIPTION\n"
    "Opens the window. With a\n.I FILE\nthat a bank or another program wrote, its import begins "
    "once an account is open.\n";
constexpr std::string_view kFoot =
    ".SH EXIT STATUS\n"
    ".TP\n.B 0\nEverything is saved.\n"
    ".TP\n.B 1\nSomething could not be saved, or there is no display.\n"
    ".TP\n.B 2\nAnother copy has the accounts open, or an argument is not known.\n"
    ".SH SEE ALSO\n.BR tallyfold\\-console (1)\n";

std::string InCapitals(std::string_view text) {
  std::string capitals;
  for (const char c : text)
    capitals += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return capitals;
}

}  // namespace

std::string RoffText(std::string_view text) {
  std::string roff;
  for (const char c : text) {
    if (roff.empty() && (c == '.' || c == '\'')) roff += "\\&";
    switch (c) {
      case '\\':
        roff += "\\e";
        break;
      case '-':
        roff += "\\-";
        break;
      case '~':
        roff += "\\(ti";
        break;
      case '^':
        roff += "\\(ha";
        break;
      case '\'':
        roff += "\\(aq";
        break;
      case '`':
        roff += "\\(ga";
        break;
      case '"':
        roff += "\\(dq";
        break;
      default:
        roff += c;
    }
  }
  return roff;
}

std::string RoffTagged(std::string_view tag, std::string_view text) {
  return ".TP\n.B " + RoffText(tag) + '\n' + RoffText(text) + '\n';
}

std::string WindowManualPage(std::string_view version) {
  std::string page = ".TH TALLYFOLD 1 \"\" \"Tallyfold " + std::string(version);
  page += kHead;
  for (const GuideChapter& chapter : Guide()) {
    page += ".SH " + RoffText(InCapitals(chapter.title)) + '\n';
    for (std::size_t i = 0; i < chapter.paragraphs.size(); ++i)
      page += (i > 0 ? ".PP\n" : "") + RoffText(chapter.paragraphs[i]) + '\n';
    for (const GuideChapter::KeyGroup& group : chapter.key_groups) {
      page += ".SS " + RoffText(group.title) + '\n';
      for (const GuideKey& key : group.keys) page += RoffTagged(key.keys, key.effect);
    }
  }
  page += kFoot;
  return page;
}

}  // namespace tallyfold
