#include "platform/background/root_window.h"

#include <QSysInfo>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include <xcb/randr.h>

namespace velorama {
namespace {

constexpr char rootPixmap[] = "_XROOTPMAP_ID";
// Who sets this one too allows others to free the pixmap.
constexpr char freeablePixmap[] = "ESETROOT_PMAP_ID";

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && number > 0; --number) {
        xcb_screen_next(&screens);
    }
    return screens.rem > 0 ? screens.data : nullptr;
}

int bitsOfPixel(const xcb_setup_t* setup, uint8_t depth) {
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0;
         xcb_format_next(&format)) {
        if (format.data->depth == depth) {
            return format.data->bits_per_pixel;
        }
    }
    return 0;
}

const xcb_visualtype_t* visualOf(const xcb_screen_t* screen) {
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0;
         xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0;
             xcb_visualtype_next(&visual)) {
            if (visual.data->visual_id == screen->root_visual) {
                return visual.data;
            }
        }
    }
    return nullptr;
}

}  // namespace

RootWindow::RootWindow(const QString& display) {
    int number = 0;
    connection_.reset(xcb_connect(display.toLocal8Bit().constData(), &number));
    if (xcb_connection_has_error(connection_.get()) == 0) {
        screen_ = screenOf(connection_.get(), number);
    }
}

bool RootWindow::isConnected() const {
    return screen_ != nullptr;
}

QSize RootWindow::size() const {
    return {screen_->width_in_pixels, screen_->height_in_pixels};
}

xcb_atom_t RootWindow::atom(const char* name) const {
    const auto length = static_cast<uint16_t>(std::strlen(name));
    xcb_connection_t* c = connection_.get();
    const auto reply =
        owned(xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, length, name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// Numbers of 32 bits; none if the property is not there or holds something else.
std::vector<uint32_t> RootWindow::property(xcb_window_t window, const char* name) const {
    constexpr uint32_t most = 4096;
    xcb_connection_t* c = connection_.get();
    const auto cookie =
        xcb_get_property(c, 0, window, atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, most);
    const auto reply = owned(xcb_get_property_reply(c, cookie, nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* values = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {values, values + reply->value_len};
}

bool RootWindow::isCovered() const {
    const xcb_atom_t desktop = atom("_NET_WM_WINDOW_TYPE_DESKTOP");
    const auto windows = property(screen_->root, "_NET_CLIENT_LIST");
    return std::any_of(windows.begin(), windows.end(), [&](xcb_window_t window) {
        const auto types = property(window, "_NET_WM_WINDOW_TYPE");
        return std::find(types.begin(), types.end(), desktop) != types.end();
    });
}

std::vector<QRect> RootWindow::monitors() const {
    xcb_connection_t* c = connection_.get();
    const auto* extension = xcb_get_extension_data(c, &xcb_randr_id);
    std::vector<QRect> result;
    if (extension != nullptr && extension->present != 0) {
        const auto cookie = xcb_randr_get_monitors(c, screen_->root, 1);
        const auto reply = owned(xcb_randr_get_monitors_reply(c, cookie, nullptr));
        auto monitor = reply ? xcb_randr_get_monitors_monitors_iterator(reply.get())
                             : xcb_randr_monitor_info_iterator_t{};
        for (; monitor.rem > 0; xcb_randr_monitor_info_next(&monitor)) {
            const auto& one = *monitor.data;
            result.push_back(QRect(one.x, one.y, one.width, one.height));
        }
    }
    return result.empty() ? std::vector{QRect(QPoint(), size())} : result;
}

QImage::Format RootWindow::format() const {
    const xcb_setup_t* setup = xcb_get_setup(connection_.get());
    const bool little = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    const xcb_visualtype_t* visual = visualOf(screen_);
    if (visual == nullptr || visual->_class != XCB_VISUAL_CLASS_TRUE_COLOR ||
        little != (QSysInfo::ByteOrder == QSysInfo::LittleEndian)) {
        return QImage::Format_Invalid;
    }
    const int bits = bitsOfPixel(setup, screen_->root_depth);
    if (bits == 32 && visual->red_mask == 0xFF0000 && visual->blue_mask == 0xFF) {
        return QImage::Format_RGB32;
    }
    if (bits == 16 && visual->red_mask == 0xF800 && visual->blue_mask == 0x1F) {
        return QImage::Format_RGB16;
    }
    return QImage::Format_Invalid;
}

/// In bands of whole rows, each no longer than a request may be.
bool RootWindow::draw(xcb_pixmap_t pixmap, const QImage& bitmap) {
    if (bitmap.isNull()) {
        return false;
    }
    xcb_connection_t* c = connection_.get();
    constexpr qsizetype head = 64;
    const qsizetype longest = qsizetype(xcb_get_maximum_request_length(c)) * 4 - head;
    const auto band = static_cast<int>(std::max<qsizetype>(1, longest / bitmap.bytesPerLine()));
    const xcb_gcontext_t gc = xcb_generate_id(c);
    xcb_create_gc(c, gc, pixmap, 0, nullptr);
    for (int y = 0; y < bitmap.height(); y += band) {
        const int rows = std::min(band, bitmap.height() - y);
        xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, gc,
                      static_cast<uint16_t>(bitmap.width()), static_cast<uint16_t>(rows), 0,
                      static_cast<int16_t>(y), 0, screen_->root_depth,
                      static_cast<uint32_t>(bitmap.bytesPerLine() * rows), bitmap.constScanLine(y));
    }
    xcb_free_gc(c, gc);
    // An answer to a question asked after all this shows that the server has done it.
    return owned(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr)) != nullptr;
}

/// Tells window managers, panels and compositors which pixmap it is, and frees the one before,
/// whose connection is gone.
void RootWindow::publish(xcb_pixmap_t pixmap) {
    xcb_connection_t* c = connection_.get();
    const auto before = property(screen_->root, rootPixmap);
    const bool freeable = before.size() == 1 && before == property(screen_->root, freeablePixmap);
    for (const char* name : {rootPixmap, freeablePixmap}) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, screen_->root, atom(name), XCB_ATOM_PIXMAP,
                            32, 1, &pixmap);
    }
    if (freeable && before.front() != XCB_PIXMAP_NONE) {
        xcb_kill_client(c, before.front());
    }
}

bool RootWindow::show(const QImage& bitmap) {
    const QImage::Format wanted = format();
    if (wanted == QImage::Format_Invalid || bitmap.size() != size()) {
        return false;
    }
    xcb_connection_t* c = connection_.get();
    const xcb_pixmap_t pixmap = xcb_generate_id(c);
    const auto width = static_cast<uint16_t>(bitmap.width());
    const auto height = static_cast<uint16_t>(bitmap.height());
    const auto made =
        xcb_create_pixmap_checked(c, screen_->root_depth, pixmap, screen_->root, width, height);
    const auto refused = owned(xcb_request_check(c, made));
    if (refused || !draw(pixmap, bitmap.convertToFormat(wanted))) {
        return false;
    }
    xcb_change_window_attributes(c, screen_->root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(c, 0, screen_->root, 0, 0, 0, 0);
    publish(pixmap);
    xcb_set_close_down_mode(c, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    return property(screen_->root, rootPixmap) == std::vector<uint32_t>{pixmap};
}

}  // namespace velorama
