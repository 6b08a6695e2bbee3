// The sound module: one wave file at a time in the background, through the multimedia library.
#include <QCoreApplication>
#include <QSoundEffect>
#include <QUrl>
#include <memory>

namespace {

std::unique_ptr<QSoundEffect> effect;

}  // namespace

// `path` is UTF-8. A sound that already plays ends.
extern "C" Q_DECL_EXPORT void zelkovaPlay(const char* path, bool looping) {
  effect = std::make_unique<QSoundEffect>();
  // The multimedia library can't end a sound once the program's own end has begun.
  QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, effect.get(),
                   [] { effect.reset(); });
  effect->setLoopCount(looping ? QSoundEffect::Infinite : 1);
  effect->setSource(QUrl::fromLocalFile(QString::fromUtf8(path)));
  effect->play();
}

extern "C" Q_DECL_EXPORT void zelkovaStop() { effect.reset(); }
