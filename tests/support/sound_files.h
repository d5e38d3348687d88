#pragma once

#include "support/files.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

namespace velorama::test {

/// A sine as a WAV file: 44,100 Hz, two channels of 16 bits, half of full loudness.
QByteArray wavFile(int milliseconds, double hertz = 440);
/// A WAV file's head of 44 bytes for `dataSize` bytes of samples, in the given shape.
QByteArray wavHead(quint32 dataSize, quint16 channels = 2, quint32 rate = 44100, quint16 bits = 16,
                   quint16 format = 1);

/// A note of a plain, steady instrument.
struct MidiNote {
    int beats = 1;
    int key = 69;   // 440 Hz
    int tempo = 0;  // microseconds a beat from here on; 0: no change
};
QByteArray midiFile(const std::vector<MidiNote>& notes, int division = 480);
/// A track chunk around events, and a file head for `tracks` of them.
QByteArray midiTrack(const QByteArray& events);
QByteArray midiHead(int tracks, int division, int format = 1);
/// The one of six seconds: 440 Hz, four beats at 120 a minute and four at 60.
QByteArray sixSecondsOfMidi();
QByteArray riffWrapped(const QByteArray& midi);

/// Writes a file; the path.
QString saved(const QString& folder, const QString& name, const QByteArray& bytes);
/// A WAV file turned into MP3 by lame with these switches; the path.
QString mp3File(const QString& folder, const QString& name, const QByteArray& wav,
                const QStringList& switches = {QStringLiteral("-b"), QStringLiteral("128")});
/// Runs a program to its end; a failure fails the test.
void run(const QString& program, const QStringList& arguments);

}  // namespace velorama::test
