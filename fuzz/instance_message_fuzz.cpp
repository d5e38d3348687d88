#include "entry.h"
#include "platform/instances/message_frame.h"

using namespace velorama;

// Reads what another program of the user sends, and sends what stands in it back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = fuzz::asBytes(data, size);
    const ReadFrame read = readFrame(bytes);
    if (read.state == ReadFrame::Whole) {
        fuzz::require(bytes.startsWith(messageFrame(read.text)));
    }
    const QString text = QString::fromUtf8(bytes);
    const QByteArray frame = messageFrame(text);
    const ReadFrame again = readFrame(frame);
    fuzz::require(frame.isEmpty() || (again.state == ReadFrame::Whole && again.text == text));
    fuzz::require(frame.isEmpty() || readFrame(frame.chopped(1)).state == ReadFrame::Incomplete);
    return 0;
}
