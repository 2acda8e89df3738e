#pragma once

#include <QObject>

namespace tallyfold::desktop {

// A field of one line keeps the keys for undo and redo to itself even where it has nothing to undo.
// Then they are the ledger's.
class TextKeys final : public QObject {
 public:
  TextKeys();

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace tallyfold::desktop
