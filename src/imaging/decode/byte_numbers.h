#pragma once

#include <QByteArrayView>
#include <QtEndian>

namespace velorama {

/// The number that stands at `offset`, not negative; 0 where it would reach beyond the end.
template <typename Number>
Number numberAt(QByteArrayView bytes, qsizetype offset, bool bigEndian = false) {
    if (offset > bytes.size() - qsizetype(sizeof(Number))) {
        return 0;
    }
    const char* place = bytes.data() + offset;
    return bigEndian ? qFromBigEndian<Number>(place) : qFromLittleEndian<Number>(place);
}

}  // namespace velorama
