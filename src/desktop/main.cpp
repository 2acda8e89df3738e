// The window: puts the computer's services together and opens one window on them.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.show();
  return QApplication::exec();
}
