// Pictures of plots.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <filesystem>
#include <string>

#include "core/plot.h"

class QCustomPlot;

namespace quorval {

// A chart as a bitmap, at three times the resolution of the screen.  The size is in
// device-independent pixels (1/96 inch).
QImage ImageOf(QCustomPlot& chart, QSize size);

// The picture as a file of an extension: ".png", ".bmp", ".svg" or ".pdf"; empty of any other.
QByteArray PictureBytes(const Plot& plot, const std::string& extension);

// Writes the picture by the path's extension.  False when it cannot be written.
bool WritePicture(QCustomPlot& chart, QSize size, const std::filesystem::path& path);
bool WritePicture(const Plot& plot, const std::filesystem::path& path);

}  // namespace quorval
