// The pictures that are delivered beside the program. A picture that isn't there is empty.
#pragma once

#include <QIcon>
#include <QPixmap>

// `name` as it stands in the pictures folder, in the sharpness that the screen can show.
QPixmap picture(const QString& name);
// The program's icon in all its sizes.
QIcon programIcon();
