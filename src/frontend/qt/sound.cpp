#include "frontend/qt/sound.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>

#include "frontend/qt/text.h"

namespace {

using Play = void (*)(const char* path, bool looping);
using Stop = void (*)();

struct SoundModule {
  QLibrary library{QCoreApplication::applicationDirPath() + QStringLiteral("/zelkova_sound")};
  Play play = reinterpret_cast<Play>(library.resolve("zelkovaPlay"));
  Stop stop = reinterpret_cast<Stop>(library.resolve("zelkovaStop"));
};

bool started = false;

SoundModule& module() {
  static SoundModule loaded;
  return loaded;
}

}  // namespace

void startSound(const std::string& path, bool looping) {
  if (!QFileInfo::exists(shown(path)) || !module().play) return;
  module().play(path.c_str(), looping);
  started = true;
}

void endSound() {
  if (started && module().stop) module().stop();
  started = false;
}
