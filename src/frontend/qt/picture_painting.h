// Painting of pictures that are plain data: as PNG, and as the pages of a document.
#pragma once

#include <QPageLayout>
#include <string>

#include "controls/picture.h"
#include "controls/print_job.h"

class QPagedPaintDevice;

// The picture as a PNG file, two pixels for one of its own, or one where
// that would be too many. Fails with outOfMemory where that is too many still.
std::string pngBytes(const Picture& picture);

// The job's pages on the device, each as large as its paper lets it be. False when the device can't
// be painted on, or can't take a further page.
bool paintPages(QPagedPaintDevice& device, const PrintJob& job);
// The same as a PDF file.
std::string pdfBytes(const PrintJob& job, const QPageLayout& layout);
