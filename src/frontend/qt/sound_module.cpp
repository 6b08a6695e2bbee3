// The sound module: one wave file at a time in the background, through the multimedia library.
#include <QSoundEffect>
#include <QUrl>
#include <memory>

namespace {

std::unique_ptr<QSoundEffect> effect;

}  // namespace

// `path` is UTF-8. A sound that already plays ends.
extern "C" Q_DECL_EXPORT void zelkovaPlay(const char* path, bool looping) {
  effect = std::make_unique<QSoundEffect>();
  effect->setLoopCount(looping ? QSoundEffect::Infinite : 1);
  effect->setSource(QUrl::fromLocalFile(QString::fromUtf8(path)));
  effect->play();
}

extern "C" Q_DECL_EXPORT void zelkovaStop() { effect.reset(); }
