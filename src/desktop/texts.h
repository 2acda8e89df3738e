#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tallyfold::desktop {

// Between the core's UTF-8 and the toolkit's texts.
[[nodiscard]] QString ToQString(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(const QString& text);

// The text of an English key in the user's language; for keys with places see platform/message.h.
[[nodiscard]] QString Text(std::string_view key);

// Where "&" would make the next letter a mnemonic (menus, tabs, buttons, labels with a buddy): a
// text of the user's, shown as it is.
[[nodiscard]] QString WithoutMnemonics(QString text);

// A tool tip guesses markup in what the user has typed: the text as it is shown literally.
[[nodiscard]] QString PlainToolTip(const QString& text);

}  // namespace tallyfold::desktop
