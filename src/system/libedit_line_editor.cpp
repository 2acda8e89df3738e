#include <histedit.h>
#include <locale.h>
#include <stdio.h>
#include <unistd.h>
#include <wchar.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/line_aids.h"
#include "system/line_editor.h"

namespace tallyfold {
namespace {

static_assert(sizeof(wchar_t) == sizeof(char32_t));

// More earlier lines are not offered.
constexpr int kEarlierLines = 1000;
constexpr std::size_t kBetweenChoices = 2;

void AppendUtf8(std::string& text, char32_t c) {
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) {
    add(c);
  } else if (c >= LineEditor::kMisfit + 0x80 && c < LineEditor::kMisfit + 0x100) {
    add(c - LineEditor::kMisfit);
  } else if (c < 0x800) {
    add(0xC0U | (c >> 6U));
    add(0x80U | (c & 0x3FU));
  } else if (c < 0x10000) {
    add(0xE0U | (c >> 12U));
    add(0x80U | ((c >> 6U) & 0x3FU));
    add(0x80U | (c & 0x3FU));
  } else {
    add(0xF0U | (c >> 18U));
    add(0x80U | ((c >> 12U) & 0x3FU));
    add(0x80U | ((c >> 6U) & 0x3FU));
    add(0x80U | (c & 0x3FU));
  }
}

std::string Narrow(std::wstring_view wide) {
  std::string text;
  text.reserve(wide.size());
  for (const wchar_t c : wide) AppendUtf8(text, static_cast<char32_t>(c));
  return text;
}

std::wstring Wide(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  while (!text.empty()) {
    char32_t c = 0;
    static_cast<void>(TakeTyped(text, true, c));
    wide += static_cast<wchar_t>(c);
  }
  return wide;
}

struct CloseFile {
  void operator()(FILE* file) const noexcept { fclose(file); }
};
using File = std::unique_ptr<FILE, CloseFile>;

File OpenCopy(int descriptor, const char* mode) {
  const int copy = ::dup(descriptor);
  if (copy < 0) return nullptr;
  File file(::fdopen(copy, mode));
  if (!file) ::close(copy);
  return file;
}

class LibeditLineEditor final : public LineEditor {
 public:
  LibeditLineEditor(File input, File output, File errors, ReadCharacter read)
      : input_(std::move(input)),
        output_(std::move(output)),
        errors_(std::move(errors)),
        read_(std::move(read)),
        history_(history_winit()),
        edit_(el_init("tallyfold-console", input_.get(), output_.get(), errors_.get())) {
    if (!IsUsable()) return;
    HistEventW event;
    history_w(history_, &event, H_SETSIZE, kEarlierLines);
    el_wset(edit_, EL_CLIENTDATA, this);
    el_wset(edit_, EL_EDITOR, L"emacs");
    el_wset(edit_, EL_SIGNAL, 0);
    el_wset(edit_, EL_HIST, history_w, history_);
    el_wset(edit_, EL_PROMPT, &LibeditLineEditor::PromptOf);
    el_wset(edit_, EL_GETCFN, &LibeditLineEditor::Next);
    el_wset(edit_, EL_ADDFN, L"tallyfold-complete", L"Completes the word",
            &LibeditLineEditor::CompleteWord);
    for (const auto& [key, command] :
         std::initializer_list<std::pair<const wchar_t*, const wchar_t*>>{
             {L"^I", L"tallyfold-complete"},
             {L"^R", L"em-inc-search-prev"},
             {L"\\e[3~", L"ed-delete-next-char"},
             {L"\\e[1~", L"ed-move-to-beg"},
             {L"\\e[4~", L"ed-move-to-end"},
             {L"\\e[H", L"ed-move-to-beg"},
             {L"\\e[F", L"ed-move-to-end"},
             {L"\\e[1;5C", L"em-next-word"},
             {L"\\e[1;5D", L"ed-prev-word"}}) {
      el_wset(edit_, EL_BIND, key, command, nullptr);
    }
  }
  LibeditLineEditor(const LibeditLineEditor&) = delete;
  LibeditLineEditor& operator=(const LibeditLineEditor&) = delete;
  ~LibeditLineEditor() override {
    if (edit_ != nullptr) el_end(edit_);
    if (history_ != nullptr) history_wend(history_);
  }

  [[nodiscard]] bool IsUsable() const { return edit_ != nullptr && history_ != nullptr; }

  Read ReadLine(std::string_view prompt, const LineAids* aids, std::string& line) override {
    prompt_ = Wide(prompt);
    aids_ = aids;
    outcome_ = Read::Done;
    TakeEarlier();
    // The window may have another size than at the line before.
    el_resize(edit_);
    // Before the prompt asks for it, so that nothing typed is shown twice.
    el_wset(edit_, EL_PREP_TERM, 1);
    int count = 0;
    const wchar_t* const typed = el_wgets(edit_, &count);
    fflush(output_.get());
    aids_ = nullptr;
    if (outcome_ != Read::Done) return outcome_;
    if (typed == nullptr || count <= 0) return Read::Ended;
    std::wstring_view text(typed, static_cast<std::size_t>(count));
    while (text.ends_with(L'\n') || text.ends_with(L'\r')) text.remove_suffix(1);
    line = Narrow(text);
    return Read::Done;
  }

  void ShowAgain() override {
    el_wset(edit_, EL_REFRESH);
    fflush(output_.get());
  }

 private:
  static LibeditLineEditor& Of(EditLine* edit) {
    void* self = nullptr;
    el_wget(edit, EL_CLIENTDATA, &self);
    return *static_cast<LibeditLineEditor*>(self);
  }

  static wchar_t* PromptOf(EditLine* edit) { return Of(edit).prompt_.data(); }

  // 1 for a character, else the line is over.
  static int Next(EditLine* edit, wchar_t* character) {
    LibeditLineEditor& self = Of(edit);
    fflush(self.output_.get());
    char32_t c = 0;
    self.outcome_ = self.read_(c);
    *character = static_cast<wchar_t>(c);
    return self.outcome_ == Read::Done ? 1 : -1;
  }

  static unsigned char CompleteWord(EditLine* edit, int /*key*/) { return Of(edit).Complete(); }

  unsigned char Complete() {
    if (aids_ == nullptr) return CC_ERROR;
    const LineInfoW* const info = el_wline(edit_);
    const std::string before =
        Narrow({info->buffer, static_cast<std::size_t>(info->cursor - info->buffer)});
    const LineCompletion completion = aids_->Complete(before);
    const std::string typed = before.substr(completion.from);
    if (completion.text != typed) {
      el_deletestr(edit_, static_cast<int>(Wide(typed).size()));
      el_winsertstr(edit_, Wide(completion.text).c_str());
      return CC_REFRESH;
    }
    if (completion.choices.empty()) return CC_REFRESH_BEEP;
    Show(completion.choices);
    return CC_REDISPLAY;
  }

  // Below the line, as many to a row as fit.
  void Show(const std::vector<std::string>& choices) {
    int columns = 0;
    el_wget(edit_, EL_GETTC, "co", &columns, nullptr);
    const std::size_t width = columns > 0 ? static_cast<std::size_t>(columns) : 80;
    std::string text = "\n";
    std::size_t used = 0;
    for (const std::string& choice : choices) {
      const std::size_t size = Wide(choice).size();
      if (used != 0 && used + kBetweenChoices + size >= width) {
        text += '\n';
        used = 0;
      } else if (used != 0) {
        text.append(kBetweenChoices, ' ');
        used += kBetweenChoices;
      }
      text += choice;
      used += size;
    }
    text += '\n';
    fwrite(text.data(), 1, text.size(), output_.get());
  }

  void TakeEarlier() {
    HistEventW event;
    history_w(history_, &event, H_CLEAR);
    if (aids_ == nullptr) return;
    for (const std::string& line : aids_->Earlier()) {
      history_w(history_, &event, H_ENTER, Wide(line).c_str());
    }
  }

  File input_;
  File output_;
  File errors_;
  ReadCharacter read_;
  HistoryW* history_;
  EditLine* edit_;
  std::wstring prompt_;
  const LineAids* aids_ = nullptr;
  Read outcome_ = Read::Done;
};

}  // namespace

std::unique_ptr<LineEditor> LineEditor::Make(int input, int output, ReadCharacter read) {
  // Lines are UTF-8 whatever the user's locale; nothing else of the program asks this one.
  if (::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) return nullptr;
  File in = OpenCopy(input, "r");
  File out = OpenCopy(output, "w");
  // What the library has to say of unknown terminals is of no use here.
  File errors(::fopen("/dev/null", "w"));
  if (!in || !out || !errors) return nullptr;
  auto editor = std::make_unique<LibeditLineEditor>(std::move(in), std::move(out),
                                                    std::move(errors), std::move(read));
  if (!editor->IsUsable()) return nullptr;
  return editor;
}

}  // namespace tallyfold
