#pragma once

#include <QImage>
#include <QRect>

#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace velorama {

/// The root window of an X server, over a connection of its own. What it shows outlives the
/// connection.
class RootWindow {
public:
    /// `display` as in the variable DISPLAY.
    explicit RootWindow(const QString& display);

    bool isConnected() const;
    /// A desktop has a window of its own over the root window.
    bool isCovered() const;
    QSize size() const;
    /// Where the monitors stand on it, in pixels; the whole of it if the server knows no monitors.
    std::vector<QRect> monitors() const;
    /// Makes a bitmap of the root window's size its background, in place of what was there. False
    /// if the server's pixels are none that are understood here.
    bool show(const QImage& bitmap);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };
    xcb_atom_t atom(const char* name) const;
    std::vector<uint32_t> property(xcb_window_t window, const char* name) const;
    QImage::Format format() const;
    bool draw(xcb_pixmap_t pixmap, const QImage& bitmap);
    void publish(xcb_pixmap_t pixmap);

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_screen_t* screen_ = nullptr;
};

}  // namespace velorama
