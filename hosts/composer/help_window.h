// The menu Help of the composer's window.
#pragma once

class QMainWindow;

namespace zolt20::composer {

/// The pages about the composer, in a window of their own.
void ShowHelp(QMainWindow& window);
/// All keys of the menus, as the menus have them, and those of the lists.
void ShowKeys(QMainWindow& window);
void ShowAbout(QMainWindow& window);

}  // namespace zolt20::composer
