#pragma once

namespace velorama {

/// Lets the toolkit's own readers take as much memory for a bitmap as this program's, wherever they
/// are used. To be called once, before the first picture is read; their own limit is lower.
void limitPictureReaders();

}  // namespace velorama
