#pragma once

#include <QString>

namespace velorama {

/// The first steps and the keys as HTML, for those who ask for help without a network: taken from
/// the very pages that the server has, less what only works there, pictures and links.
QString shippedHelp();

}  // namespace velorama
