// The commands of the menu View that change how maps look: how large, and in which colours. Both
// choices are kept in the per-user store.
#pragma once

class MenuItem;

// Puts the kept choices in force. Called once, with the main window's records made.
void restoreLook();

void zoomIn();
void zoomOut();
template <int percent>
void zoomTo();
// As large as the window allows, until another size is asked for.
void fitWindow();
void followZoom(MenuItem& row);

// Between the given colours of maps and those that can be told apart without red and blue.
void switchMapColours();
void followMapColours(MenuItem& row);

void setMapZoom(int percent, bool fits);

template <int percent>
void zoomTo() {
  setMapZoom(percent, false);
}
