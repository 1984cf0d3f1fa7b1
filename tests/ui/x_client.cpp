#include "ui/x_client.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <future>
#include <memory>
#include <thread>

namespace quorvel {
namespace {

constexpr int PATIENCE_FOR_X_MS = 5000;

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

Connection Connect() { return {xcb_connect(nullptr, nullptr), &xcb_disconnect}; }

xcb_atom_t Atom(xcb_connection_t* x, std::string_view name) {
  const auto asked = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
      xcb_intern_atom_reply(x, asked, nullptr), &std::free);
  return reply->atom;
}

void Send(xcb_connection_t* x, xcb_window_t window, const char* type,
          std::array<std::uint32_t, 5> data) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = Atom(x, type);
  std::copy(data.begin(), data.end(), message.data.data32);
  xcb_send_event(x, 0, window, 0, reinterpret_cast<const char*>(&message));
  xcb_flush(x);
}

// Sends the dragged data to the window that asks for it.
void Answer(xcb_connection_t* x, const xcb_selection_request_event_t& asked,
            const std::string& uris) {
  xcb_change_property(x, XCB_PROP_MODE_REPLACE, asked.requestor, asked.property, asked.target, 8,
                      static_cast<std::uint32_t>(uris.size()), uris.data());
  // Every event has 32 bytes, but this struct is shorter.
  union {
    xcb_selection_notify_event_t notify;
    char bytes[32];
  } event{};
  event.notify = {
      XCB_SELECTION_NOTIFY, 0, 0, asked.time, asked.requestor, asked.selection, asked.target,
      asked.property};
  xcb_send_event(x, 0, asked.requestor, 0, event.bytes);
  xcb_flush(x);
}

// Returns when the drag is over. Returns false if the window does not answer.
bool Drag(xcb_window_t target, QPoint place, const std::string& uris) {
  const Connection connection = Connect();
  xcb_connection_t* x = connection.get();
  const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(x)).data;
  const xcb_window_t own = xcb_generate_id(x);
  xcb_create_window(x, 0, own, screen.root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    screen.root_visual, 0, nullptr);
  xcb_set_selection_owner(x, own, Atom(x, "XdndSelection"), XCB_CURRENT_TIME);
  constexpr std::uint32_t VERSION = 5U << 24U;
  const auto at = static_cast<std::uint32_t>(place.x() << 16 | place.y());
  Send(x, target, "XdndEnter", {own, VERSION, Atom(x, "text/uri-list"), 0, 0});
  Send(x, target, "XdndPosition", {own, 0, at, XCB_CURRENT_TIME, Atom(x, "XdndActionCopy")});
  for (int waited = 0; waited < PATIENCE_FOR_X_MS; ++waited) {
    const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event(xcb_poll_for_event(x),
                                                                           &std::free);
    const int type = event == nullptr ? 0 : event->response_type & 0x7F;
    if (type == 0) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (type == XCB_SELECTION_REQUEST) {
      Answer(x, reinterpret_cast<xcb_selection_request_event_t&>(*event), uris);
    }
    if (type != XCB_CLIENT_MESSAGE) continue;
    const auto& message = reinterpret_cast<xcb_client_message_event_t&>(*event);
    const bool isStatus = message.type == Atom(x, "XdndStatus");
    const bool isTaken = (message.data.data32[1] & 1U) != 0;
    if (isStatus) Send(x, target, isTaken ? "XdndDrop" : "XdndLeave", {own, 0, 0, 0, 0});
    if (!isStatus || !isTaken) return true;
  }
  return false;
}

// Notices when a window manager's message reaches a window of this program.
class Arrival : public QAbstractNativeEventFilter {
 public:
  Arrival(xcb_window_t window, xcb_atom_t protocol) : window_(window), protocol_(protocol) {
    QCoreApplication::instance()->installNativeEventFilter(this);  // until it is destroyed
  }

  bool nativeEventFilter(const QByteArray&, void* event, qintptr*) override {
    const auto& message = *static_cast<const xcb_client_message_event_t*>(event);
    hasCome_ |= (message.response_type & 0x7F) == XCB_CLIENT_MESSAGE && message.window == window_ &&
                message.data.data32[0] == protocol_;
    return false;
  }

  [[nodiscard]] bool HasCome() const { return hasCome_; }

 private:
  xcb_window_t window_;
  xcb_atom_t protocol_;
  bool hasCome_ = false;
};

}  // namespace

void DragFileTo(const QWidget& window, QPoint place, const std::string& path) {
  const QByteArray uri = QUrl::fromLocalFile(QString::fromStdString(path)).toEncoded() + "\r\n";
  // The window waits for answers from the other side, so they are given meanwhile.
  auto drag = std::async(std::launch::async, Drag, static_cast<xcb_window_t>(window.winId()), place,
                         uri.toStdString());
  const auto isOver = [&drag] {
    return drag.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
  };
  EXPECT_TRUE(QTest::qWaitFor(isOver, 2 * PATIENCE_FOR_X_MS) && drag.get()) << "no answer";
}

void CloseByFrame(const QWidget& window) {
  const Connection x = Connect();
  const auto target = static_cast<xcb_window_t>(window.winId());
  const xcb_atom_t close = Atom(x.get(), "WM_DELETE_WINDOW");
  const Arrival message(target, close);
  Send(x.get(), target, "WM_PROTOCOLS", {close, 0, 0, 0, 0});
  EXPECT_TRUE(QTest::qWaitFor([&] { return message.HasCome(); }, PATIENCE_FOR_X_MS));
  QCoreApplication::processEvents();  // Qt may have only queued it
}

}  // namespace quorvel
