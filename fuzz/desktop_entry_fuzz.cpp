#include "entry.h"
#include "platform/session/file_type_texts.h"

using namespace velorama;

// A desktop entry, and one made for the program that it names.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QString text = QString::fromUtf8(fuzz::asBytes(data, size));
    fuzz::require(entryText(entryValue(text)) == text);
    for (const QString& program : {text, entryProgram(text)}) {
        FileType type;
        type.program = program;
        type.programName = text;
        fuzz::require(entryProgram(desktopEntry(type)) == program);
    }
    return 0;
}
