#include "QtBeeper.h"

#include <QApplication>
#include <QAudioDevice>
#include <QDir>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>
#include <QtEndian>
#include <cmath>

namespace {

void putU16(QByteArray& out, quint16 value)
{
    char bytes[2];
    qToLittleEndian(value, bytes);
    out.append(bytes, 2);
}

void putU32(QByteArray& out, quint32 value)
{
    char bytes[4];
    qToLittleEndian(value, bytes);
    out.append(bytes, 4);
}

} // namespace

QByteArray QtBeeper::toneWav(int frequency, int durationMs, int fadeMs, int sampleRate)
{
    const int samples = int(qint64(sampleRate) * durationMs / 1000);
    const int fadeSamples = qMin(int(qint64(sampleRate) * fadeMs / 1000), samples / 2);
    const quint32 dataBytes = quint32(samples) * 2;

    QByteArray wav;
    wav.reserve(44 + int(dataBytes));
    wav.append("RIFF", 4);
    putU32(wav, 36 + dataBytes);
    wav.append("WAVE", 4);
    wav.append("fmt ", 4);
    putU32(wav, 16); // size of the PCM format block
    putU16(wav, 1); // PCM
    putU16(wav, 1); // mono
    putU32(wav, quint32(sampleRate));
    putU32(wav, quint32(sampleRate) * 2); // bytes per second
    putU16(wav, 2); // bytes per frame
    putU16(wav, 16); // bits per sample
    wav.append("data", 4);
    putU32(wav, dataBytes);

    // Half of full scale: loud enough to be heard over a workshop, without clipping.
    constexpr double amplitude = 0.5 * 32767.0;
    const double step = 2.0 * M_PI * frequency / sampleRate;
    for (int i = 0; i < samples; ++i) {
        double gain = 1.0;
        if (fadeSamples > 0) {
            if (i < fadeSamples)
                gain = double(i) / fadeSamples;
            else if (i >= samples - fadeSamples)
                gain = double(samples - 1 - i) / fadeSamples;
        }
        putU16(wav, quint16(qint16(std::lround(amplitude * gain * std::sin(step * i)))));
    }
    return wav;
}

QtBeeper::QtBeeper(QObject* parent)
    : QObject(parent)
    , file_(QDir::tempPath() + QStringLiteral("/talavex-beep-XXXXXX.wav"))
{
    const QByteArray wav = toneWav();
    written_ = file_.open() && file_.write(wav) == wav.size() && file_.flush();
    if (!written_ || QMediaDevices::audioOutputs().isEmpty())
        return;
    effect_ = new QSoundEffect(this);
    effect_->setSource(QUrl::fromLocalFile(file_.fileName()));
}

QtBeeper::~QtBeeper() = default;

bool QtBeeper::toneAvailable() const { return effect_ && effect_->status() != QSoundEffect::Error; }

QString QtBeeper::toneFile() const { return written_ ? file_.fileName() : QString(); }

void QtBeeper::beep()
{
    if (!toneAvailable()) {
        QApplication::beep();
        lastRoute_ = Route::SystemBell;
        return;
    }
    // The alarm timer ticks faster than some sound servers start a tone; skipping keeps the
    // beeps from piling up behind one another.
    if (effect_->isPlaying()) {
        lastRoute_ = Route::Skipped;
        return;
    }
    effect_->play();
    lastRoute_ = Route::Tone;
}
