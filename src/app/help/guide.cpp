#include "app/help/guide.h"

#include <utility>

#include "platform/ambient.h"

namespace tallyfold {
namespace {

struct ChapterText {
  std::string_view name;
  std::string_view title;                    // English key
  std::vector<std::string_view> paragraphs;  // English keys
};

const std::vector<ChapterText>& ChapterTexts() {
  static const std::vector<ChapterText> texts = {
      {"start",
       "Getting Started",
       {"Tallyfold keeps accounts as a paper check register does: every account is a list of "
        "entries, and beside each stands the balance after it. At the first start the sheet for a "
        "new account opens. Give it a name and the balance it begins with.",
        "Enter what you spend with New Debit, what comes in with New Deposit, and what goes from "
        "one of your accounts to another with New Transfer. Return is OK, Escape is Cancel. "
        "\"OK, then new\" keeps the sheet open for the next receipt.",
        "Descriptions and payees are completed from what the account already has. Where an earlier "
        "entry of the same description is suggested, one key takes all of it.",
        "An entry can be divided over ten lines: Split in its sheet. Its amount is then the total "
        "of the lines.",
        "A transfer stands in both accounts. Changing or removing one half changes the other; "
        "before the other half is removed you are asked.",
        "Everything can be undone, step by step, back to the start of the program.",
        "Everything can also be done by keys: the menus have all commands, and F6 goes from one "
        "part "
        "of the window to the next. Speak Figures reads the balances that show aloud, also in "
        "front "
        "of a sheet, and a screen reader is told of each that changes."}},
      {"reconcile",
       "The Bank's Statement",
       {"On the tab Reconcile, type the closing balance of the statement. Then go through it and "
        "turn over the mark of every entry that the bank has: Space does it and moves on.",
        "When the marked entries come to the bank's balance it says Balanced. Until then the "
        "difference is shown and, where one or two entries would explain it, which.",
        "Show Unresolved leaves only the entries without a mark."}},
      {"schedule",
       "Entries That Recur",
       {"A scheduled entry is put into the register when it is committed, not before. What is due "
        "is shown at the start, if the preferences say so, and by Show What Is Due.",
        "A day that a month lacks is skipped, not moved: a monthly entry that begins on the 31st "
        "occurs only in months of 31 days, one on the 30th skips February, one on the 29th occurs "
        "in February in leap years only. For the end of every month choose the last day of the "
        "month.",
        "With \"preceding Friday\" an occurrence on a Saturday or Sunday is paid on the Friday "
        "before. This holds for months, quarters and years, not for weeks.",
        "A skipped occurrence counts as committed: it does not come back."}},
      {"filters",
       "Searching and Filtering",
       {"What is typed in the search field narrows the register to the entries whose text holds "
        "it. The menu at the field's side chooses what is searched, or a filter that takes no "
        "text, like the entries of this month.",
        "The balance beside an entry is always that of all entries before it, also of those the "
        "filter hides. The sum in the status line is that of the shown ones.",
        "A filter hides entries, it never changes them. An entry that was just saved and does not "
        "match stays saved: the status line says which filter hides it, and Show finds it. Where "
        "filters follow the typing, saving an entry ends the search so that the entry is seen.",
        "What is shown is what is printed and what Export Text writes."}},
      {"print",
       "Printing",
       {"Print shows the pages of what the tab has: the register with its rows, columns and order, "
        "or "
        "the selected rows alone; the reconcile report; the scheduled entries; the selected "
        "summary. "
        "Lines of splits and notes are printed if you want them.",
        "Page Up and Page Down turn the pages, Home and End go to the first and the last. Paper "
        "and "
        "orientation are remembered; Automatic turns the paper where the columns want it.",
        "Days and amounts are never cut. Where the paper has no room for them the program says so: "
        "turn it, choose a larger one, or hide columns. Long texts are shortened.",
        "Save as PDF needs no printer. Its text can be selected and searched."}},
      {"import",
       "Importing",
       {"Import reads the file into a review. Nothing of it touches the account before the button "
        "that imports, and one Undo takes a whole import back.",
        "An entry that the account already has is left unmarked: the same amount and day, and the "
        "same check number, payee or description. Mark it to have it all the same. A near match "
        "is only a hint.",
        "A line of the file may be matched with an entry of the account instead of imported: that "
        "entry gets the mark of the bank's statement, and nothing else of it changes. Where the "
        "file tells the balance of the statement, it is taken over only if you say so.",
        "Of a table (CSV) every line is shown as the file has it, under a menu for each column "
        "that "
        "says what the column holds. Lines that become no entry are dim, with the reason, and the "
        "balances of the bank prove how the rest is read.",
        "Types that the account lacks are made. Amounts and days that cannot be read are counted "
        "and shown, never guessed: choose another date format or other separators and the file "
        "is read again."}},
      {"passwords",
       "Passwords and Locking",
       {"A password hides, it does not encrypt. Without it this program shows nothing of the "
        "account, but the file stays readable to whoever can open it. To keep others from the "
        "file, encrypt the disk or the home folder.",
        "The application's password guards everything, an account's password that account. A "
        "locked account is in no balance, no search and no list of completions. A password that "
        "is lost cannot be recovered by this program.",
        "Lock closes everything at once."}},
      {"files",
       "Where the Files Are",
       {"The accounts are in ~/Library/Tallyfold/Accounts.plist, the preferences in "
        "~/Library/Preferences/Quorva. They are saved by Save, at the end, and whenever nothing "
        "has been typed for a quarter of a minute. What was done since is kept in "
        "Accounts.plist.recovery beside "
        "it, and found again at the next start after an interruption.",
        "When the program starts it puts a dated copy into ~/Library/Tallyfold/Backups, if the "
        "newest is older than the preferences say. Copies are never deleted. Back Up Now makes "
        "one at once.",
        "To get an earlier state back, choose Restore From File and one of these copies. What "
        "there is is kept first, as Accounts.plist.kept and its day.",
        "A file that was changed by another program, or that could not be read whole, is never "
        "written over: a copy of it is kept beside it, and you are told."}},
  };
  return texts;
}

}  // namespace

std::vector<GuideChapter> Guide() {
  std::vector<GuideChapter> chapters;
  for (const ChapterText& text : ChapterTexts()) {
    GuideChapter chapter{
        .name = text.name, .title = LocalizedText(text.title), .paragraphs = {}, .key_groups = {}};
    for (const std::string_view paragraph : text.paragraphs)
      chapter.paragraphs.push_back(LocalizedText(paragraph));
    chapters.push_back(std::move(chapter));
  }
  chapters.push_back({.name = "keys",
                      .title = LocalizedText("Keys"),
                      .paragraphs = {},
                      .key_groups = GuideKeys()});
  return chapters;
}

}  // namespace tallyfold
