// The menu Help of the composer's window.
#pragma once

class QMainWindow;

namespace zolt20::composer {

/// Shows the pages about the composer in a window of their own.
void ShowHelp(QMainWindow& window);
/// Shows the keys of all menus, and those of the lists.
void ShowKeys(QMainWindow& window);
void ShowAbout(QMainWindow& window);

}  // namespace zolt20::composer
