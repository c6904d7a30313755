// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "FirstPaint.h"

#include "Child.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <stdexcept>
#include <thread>
#include <unistd.h>
#include <xcb/xcb.h>

namespace turfdesk::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds Patience{60};
// Short against what is measured, long enough not to take the processor from the program.
constexpr std::chrono::microseconds Pause{500};
// A colour that no window has.
constexpr std::uint32_t Background = 0xFF00FF;

struct FreeReply {
  void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply> using ReplyPointer = std::unique_ptr<Reply, FreeReply>;

/// A connection to the display, which sees every window that a program shows.
class Observer {
public:
  Observer() : mConnection(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(mConnection) != 0) {
      xcb_disconnect(mConnection);
      throw std::runtime_error("cannot reach the display");
    }
    mRoot = xcb_setup_roots_iterator(xcb_get_setup(mConnection)).data->root;
    const std::array<std::uint32_t, 2> values = {Background, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY};
    xcb_change_window_attributes(mConnection, mRoot, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    xcb_clear_area(mConnection, 0, mRoot, 0, 0, 0, 0);
    // An answer to any question says that the display has done all this.
    Pixel(0, 0);
  }
  Observer(const Observer &) = delete;
  Observer &operator=(const Observer &) = delete;
  ~Observer() { xcb_disconnect(mConnection); }

  /// Is a window shown that has been painted?
  bool SeesPaint() {
    while (const ReplyPointer<xcb_generic_event_t> event{xcb_poll_for_event(mConnection)})
      if ((event->response_type & 0x7F) == XCB_MAP_NOTIFY)
        mWindow = reinterpret_cast<const xcb_map_notify_event_t *>(event.get())->window;
    if (mWindow == XCB_NONE)
      return false;
    const ReplyPointer<xcb_get_geometry_reply_t> place{
        xcb_get_geometry_reply(mConnection, xcb_get_geometry(mConnection, mWindow), nullptr)};
    // Helper windows of the toolkit are tiny or off the screen.
    if (!place || place->width < 50 || place->height < 50)
      return false;
    return Pixel(place->x + place->width / 2, place->y + place->height / 2) != Background;
  }

private:
  std::uint32_t Pixel(int x, int y) const {
    const ReplyPointer<xcb_get_image_reply_t> image{
        xcb_get_image_reply(mConnection,
                            xcb_get_image(mConnection, XCB_IMAGE_FORMAT_Z_PIXMAP, mRoot, static_cast<std::int16_t>(x),
                                          static_cast<std::int16_t>(y), 1, 1, 0xFFFFFF),
                            nullptr)};
    if (!image)
      return Background;
    const std::uint8_t *data = xcb_get_image_data(image.get());
    return data[0] | data[1] << 8U | static_cast<std::uint32_t>(data[2]) << 16U;
  }

  xcb_connection_t *mConnection;
  xcb_window_t mRoot = XCB_NONE;
  xcb_window_t mWindow = XCB_NONE;
};

/// Ends a program that was started, whatever happens.
class RunningChild {
public:
  explicit RunningChild(const std::vector<std::string> &command) : mChild(StartChild(command)) {}
  RunningChild(const RunningChild &) = delete;
  RunningChild &operator=(const RunningChild &) = delete;
  ~RunningChild() { EndChild(mChild); }

private:
  pid_t mChild;
};

// Xvfb chooses a free number and writes it to the pipe once it takes connections.
std::string ReadDisplayNumber(int pipe) {
  std::string number;
  char c = 0;
  while (read(pipe, &c, 1) == 1 && c != '\n')
    number += c;
  return number;
}

} // namespace

TestDisplay::TestDisplay() {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0)
    throw std::runtime_error("no pipe for Xvfb");
  fcntl(ends[0], F_SETFD, FD_CLOEXEC);
  mServer = StartChild(
      {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0", "1024x768x24", "-nolisten", "tcp", "-noreset"});
  close(ends[1]);
  const std::string number = ReadDisplayNumber(ends[0]);
  close(ends[0]);
  if (number.empty()) {
    EndChild(mServer);
    throw std::runtime_error("Xvfb does not start");
  }
  setenv("DISPLAY", (":" + number).c_str(), 1);
  setenv("QT_QPA_PLATFORM", "xcb", 1);
}

TestDisplay::~TestDisplay() { EndChild(mServer); }

double SecondsToFirstPaint(const std::vector<std::string> &command) {
  Observer observer;
  const auto start = Clock::now();
  const RunningChild program(command);
  while (!observer.SeesPaint()) {
    if (Clock::now() - start > Patience)
      throw std::runtime_error(command.front() + ": no window after a minute");
    std::this_thread::sleep_for(Pause);
  }
  return std::chrono::duration<double>(Clock::now() - start).count();
}

} // namespace turfdesk::bench
