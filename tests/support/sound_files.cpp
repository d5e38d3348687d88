#include "support/sound_files.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace velorama::test {
namespace {

template <typename Number>
QByteArray little(Number number) {
    QByteArray bytes(sizeof(number), 0);
    qToLittleEndian(number, bytes.data());
    return bytes;
}

template <typename Number>
QByteArray big(Number number) {
    QByteArray bytes(sizeof(number), 0);
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// A MIDI delta time.
QByteArray ticks(int count) {
    QByteArray bytes(1, static_cast<char>(count & 0x7f));
    for (count >>= 7; count > 0; count >>= 7) {
        bytes.prepend(static_cast<char>(0x80 | (count & 0x7f)));
    }
    return bytes;
}

}  // namespace

QByteArray wavHead(quint32 dataSize, quint16 channels, quint32 rate, quint16 bits, quint16 format) {
    const auto frame = static_cast<quint16>(channels * bits / 8);
    return "RIFF" + little(quint32(36 + dataSize)) + "WAVEfmt " + little(quint32(16)) +
           little(format) + little(channels) + little(rate) + little(quint32(rate * frame)) +
           little(frame) + little(bits) + "data" + little(dataSize);
}

QByteArray wavFile(int milliseconds, double hertz) {
    const int frames = static_cast<int>(qint64(milliseconds) * 44100 / 1000);
    QByteArray samples;
    samples.reserve(qsizetype(frames) * 4);
    for (int i = 0; i < frames; ++i) {
        const double phase = 2 * std::numbers::pi * hertz * i / 44100;
        const QByteArray sample = little(static_cast<qint16>(std::lround(16000 * std::sin(phase))));
        samples += sample + sample;
    }
    return wavHead(static_cast<quint32>(samples.size())) + samples;
}

QByteArray midiTrack(const QByteArray& events) {
    return "MTrk" + big(quint32(events.size())) + events;
}

QByteArray midiHead(int tracks, int division, int format) {
    return "MThd" + big(quint32(6)) + big(quint16(format)) + big(quint16(tracks)) +
           big(quint16(division));
}

QByteArray midiFile(const std::vector<MidiNote>& notes, int division) {
    QByteArray events = QByteArray::fromHex("00c04f");  // ocarina
    for (const MidiNote& note : notes) {
        if (note.tempo > 0) {
            events += QByteArray::fromHex("00ff5103") + big(quint32(note.tempo)).mid(1);
        }
        const auto key = static_cast<char>(note.key);
        events += QByteArray::fromHex("0090") + key + char(100);
        events += ticks(note.beats * division) + QByteArray::fromHex("80") + key + char(0);
    }
    return midiHead(1, division, 0) + midiTrack(events + QByteArray::fromHex("00ff2f00"));
}

QByteArray sixSecondsOfMidi() {
    return midiFile({{4, 69, 500000}, {4, 69, 1000000}});
}

QByteArray riffWrapped(const QByteArray& midi) {
    return "RIFF" + little(quint32(midi.size() + 12)) + "RMIDdata" + little(quint32(midi.size())) +
           midi;
}

QString saved(const QString& folder, const QString& name, const QByteArray& bytes) {
    QString path = QDir(folder).filePath(name);
    writeFile(path, bytes);
    return path;
}

void run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000) && process.exitCode() == 0)
        << program.toStdString() << ": " << process.readAllStandardError().toStdString();
}

QString mp3File(const QString& folder, const QString& name, const QByteArray& wav,
                const QStringList& switches) {
    const QString source = saved(folder, name + QStringLiteral(".source.wav"), wav);
    QString target = QDir(folder).filePath(name);
    run(QStringLiteral("lame"),
        QStringList{QStringLiteral("--quiet")} + switches + QStringList{source, target});
    QFile::remove(source);
    return target;
}

}  // namespace velorama::test
