// The commands of the menu View: what is compared with, and the way from one difference to the
// next.
#pragma once

class MenuItem;
struct Difference;

void compareWithNothing();
void compareWithFile();
void compareWithComparison();
// The tick of such a command's row; the comparison image can't be chosen while none is loaded.
void followReference(MenuItem& row);

// To the next or the last marked cell or box, over all tabs, round and round.
void nextDifference();
void lastDifference();

// To the first place of a difference; a stretch outside the address map is offered to the address
// editor.
void goToDifference(const Difference& difference);
