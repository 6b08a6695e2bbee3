// Letters by which the keyboard chooses among captions that stand together: the rows of a menu, the
// fields and buttons of a dialog.
#pragma once

#include <string>
#include <string_view>

class Window;

// The first letter of one of the caption's words, else any letter of it, that `taken` doesn't hold
// yet, as a capital; it is added there. Of a caption without letters the first free digit. 0 where
// none is left.
char freeLetter(std::string_view caption, std::string& taken);
// Where the caption has the letter, best at the start of a word; npos where it hasn't. Letters
// behind characters of another script don't count: a mark there would look lost.
std::size_t placeOfLetter(std::string_view caption, char letter);

// Gives each button, check box and option of the window its letter, and each field to the caption
// that it is named after. What Enter and Escape do needs none.
void giveLetters(Window& window);
