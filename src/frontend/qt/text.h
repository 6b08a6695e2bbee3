// Texts of the records as the toolkit wants them. Records hold UTF-8; where the toolkit would take
// a '&' for a mnemonic or a '<' for markup, they are kept from it.
#pragma once

#include <QString>
#include <string>

class Captioned;

inline QString shown(const std::string& text) { return QString::fromStdString(text); }
inline std::string stored(const QString& text) { return text.toStdString(); }

// The caption, with a mark before the letter by which the keyboard chooses it.
QString letteredCaption(const Captioned& record);
// For captions in which the toolkit looks for mnemonics.
QString shownCaption(const std::string& text);
// For tool tips: long ones are wrapped.
QString shownTip(const std::string& text);
