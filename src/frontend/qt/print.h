// Printing. The part that needs the print library is a module beside the program, loaded with the
// first preview.
#pragma once

class QWidget;
struct PrintJob;

// Shows the job's pages over `parent`, from where they are printed or saved as PDF.
void showPreview(QWidget* parent, const PrintJob& job);
