#include "entry.h"
#include "platform/web/http_reading.h"
#include "shell/update_check.h"

using namespace velorama;

namespace {

constexpr qint64 mostBytes = 512;

HttpReading readInPieces(const QByteArray& bytes, qsizetype piece, HttpReading::State& state) {
    HttpReading reading(mostBytes);
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        reading.take(bytes.mid(at, piece));
    }
    state = reading.close();
    return reading;
}

}  // namespace

// A server's whole answer, at once and in pieces: both must tell the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = fuzz::asBytes(data, size);
    auto state = HttpReading::State::More;
    const HttpReading whole = readInPieces(bytes, qMax<qsizetype>(1, bytes.size()), state);
    fuzz::require(whole.body().size() <= mostBytes);
    for (const qsizetype piece : {1, 7}) {
        auto other = HttpReading::State::More;
        const HttpReading pieces = readInPieces(bytes, piece, other);
        fuzz::require(other == state);
        fuzz::require(state == HttpReading::State::Broken ||
                      (pieces.status() == whole.status() && pieces.body() == whole.body() &&
                       pieces.isCut() == whole.isCut() &&
                       pieces.header("location") == whole.header("location")));
    }
    const QString text = QString::fromUtf8(whole.body());
    const UpdateOutcome outcome = updateOutcome(QStringLiteral("1.0"), text);
    fuzz::require(text.isEmpty() == (outcome == UpdateOutcome::NoAnswer));
    return 0;
}
