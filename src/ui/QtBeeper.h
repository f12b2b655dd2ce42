#pragma once

#include "base/Services.h"

#include <QByteArray>
#include <QObject>
#include <QTemporaryFile>

class QSoundEffect;

// The alarm tone: a short sine beep generated at start and played through the sound card. The
// system bell is only a fallback, since most Linux desktops keep it silent. When no audio output
// exists the fallback is used; a beep never blocks and never queues behind a tone still playing.
class QtBeeper : public QObject, public Beeper {
    Q_OBJECT
public:
    // How the last beep() was sounded.
    enum class Route { None, Tone, SystemBell, Skipped };

    static constexpr int ToneFrequency = 880; // Hz
    static constexpr int ToneDuration = 120; // ms
    static constexpr int ToneFade
        = 5; // ms, in and out, so the tone starts and ends without a click
    static constexpr int SampleRate = 44100;

    explicit QtBeeper(QObject* parent = nullptr);
    ~QtBeeper() override;

    void beep() override;

    Route lastRoute() const { return lastRoute_; }
    // True when beeps go to the sound card rather than the system bell.
    bool toneAvailable() const;
    // The generated tone on disk (empty when it could not be written).
    QString toneFile() const;

    // A 16-bit mono PCM WAV image of a sine tone with a linear fade in and out.
    static QByteArray toneWav(int frequency = ToneFrequency, int durationMs = ToneDuration,
        int fadeMs = ToneFade, int sampleRate = SampleRate);

private:
    QTemporaryFile file_;
    QSoundEffect* effect_ = nullptr;
    bool written_ = false;
    Route lastRoute_ = Route::None;
};
