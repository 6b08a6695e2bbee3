// The strip below the menu bar that shows the notice in force.
#pragma once

class QWidget;

QWidget* makeNoticeStrip();
