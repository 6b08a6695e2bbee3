#include "frontend/qt/sound.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QTimer>

#include "frontend/qt/text.h"

namespace {

using Play = void (*)(const char* path, bool looping);
using Stop = void (*)();

struct SoundModule {
  QLibrary library{QCoreApplication::applicationDirPath() + QStringLiteral("/zelkova_sound")};
  Play play = reinterpret_cast<Play>(library.resolve("zelkovaPlay"));
  Stop stop = reinterpret_cast<Stop>(library.resolve("zelkovaStop"));
};

// The window that a sound belongs to is painted first.
constexpr int paintedFirst = 100;  // milliseconds

bool started = false;
int request = 0;  // counts starts and ends, so that an end overtakes a start that still waits

SoundModule& module() {
  static SoundModule loaded;
  return loaded;
}

void play(const std::string& path, bool looping) {
  if (!module().play) return;
  module().play(path.c_str(), looping);
  started = true;
}

}  // namespace

void startSound(const std::string& path, bool looping) {
  if (!QFileInfo::exists(shown(path))) return;
  QTimer::singleShot(paintedFirst, [path, looping, mine = ++request] {
    if (mine == request) play(path, looping);
  });
}

void endSound() {
  ++request;
  if (started && module().stop) module().stop();
  started = false;
}
