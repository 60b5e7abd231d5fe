#include "instrument/session.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

namespace korvinel::instrument {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

const std::string test = "TEST\xC0";
const std::string start = "S\x01\x04\x78\x41\x08\x42\xA5";
const std::string stop = "\xFF\x01";

/// The computer's side of the line, opened like a serial port.
class Port {
 public:
  explicit Port(const fs::path& name) : descriptor_(::open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    termios settings{};
    if (tcgetattr(descriptor_, &settings) != 0) return;
    cfmakeraw(&settings);
    cfsetspeed(&settings, B19200);
    tcsetattr(descriptor_, TCSANOW, &settings);
  }
  ~Port() { ::close(descriptor_); }
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;

  bool isOpen() const { return descriptor_ >= 0; }
  void discard() const { tcflush(descriptor_, TCIFLUSH); }
  bool write(const std::string& bytes) const {
    return ::write(descriptor_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  }
  bool hungUp() const {
    pollfd state{descriptor_, 0, 0};
    return ::poll(&state, 1, 0) == 1 && (state.revents & POLLHUP) != 0;
  }
  std::string read() const {
    std::array<char, 65536> buffer{};
    const ssize_t count = ::read(descriptor_, buffer.data(), buffer.size());
    return {buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
  }

 private:
  int descriptor_;
};

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  ~SessionTest() override { fs::remove_all(folder_); }

  Options optionsWith(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"--link", link().string()});
    return parseOptions(arguments, "");
  }
  fs::path link() const { return folder_ / "ports" / "COM1"; }

  // Runs the session until at least `count` bytes have arrived, at most 20 s.
  static std::string readAtLeast(std::size_t count, Session& session, const Port& port) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    std::string bytes;
    while (bytes.size() < count && std::chrono::steady_clock::now() < end) {
      session.step(5ms);
      bytes += port.read();
    }
    return bytes;
  }
  // Ends the stream with the stop and test commands; nothing follows the answer.
  static std::string stopAndReadRest(Session& session, const Port& port) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    port.write(stop + test);
    std::string bytes;
    while (!bytes.ends_with("OK") && std::chrono::steady_clock::now() < end) {
      session.step(5ms);
      bytes += port.read();
    }
    return bytes;
  }
  static void runFor(std::chrono::milliseconds time, Session& session) {
    for (const auto end = std::chrono::steady_clock::now() + time; std::chrono::steady_clock::now() < end;)
      session.step(5ms);
  }
  static std::string answerToTest(Session& session, const Port& port) {
    port.discard();
    port.write(test);
    return readAtLeast(2, session, port);
  }

  fs::path folder_ = fs::path(testing::TempDir()) / ("session-" + std::to_string(::getpid()));
  std::ostringstream output_;
};

TEST_F(SessionTest, SaysWhereItIsReady) {
  const Session session(optionsWith({}), output_);
  EXPECT_EQ(output_.str(),
            "korvinel-instrument: ready on " + link().string() + " (" + fs::read_symlink(link()).string() + ")\n");
}

TEST_F(SessionTest, IsRawBeforeTheProgramSetsItsPort) {
  const Session session(optionsWith({}), output_);
  const int port = ::open(link().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  termios settings{};
  ASSERT_EQ(tcgetattr(port, &settings), 0);
  EXPECT_EQ(settings.c_lflag & static_cast<tcflag_t>(ICANON | ECHO | ISIG), 0U);
  EXPECT_EQ(settings.c_oflag & static_cast<tcflag_t>(OPOST), 0U);
  EXPECT_EQ(cfgetospeed(&settings), static_cast<speed_t>(B19200));
  ::close(port);
}

TEST_F(SessionTest, AnswersStreamsAndStops) {
  // The test command does not end the stream here; only the stop command does.
  Session session(
      optionsWith({"--speed", "50", "--model", "eyes-open", "--seed", "3", "--fault", "test-keeps-streaming"}),
      output_);
  const Port port(link());
  ASSERT_TRUE(port.isOpen());
  ASSERT_EQ(answerToTest(session, port), "OK");
  port.write(start);
  std::string bytes = readAtLeast(5 * 1024, session, port);
  ASSERT_GE(bytes.size(), 5 * 1024U);
  bytes += stopAndReadRest(session, port);
  runFor(200ms, session);  // ten seconds of signal at this speed
  EXPECT_EQ(port.read(), "");

  SignalModel model(parseModels("eyes-open"), 3);
  std::string expected;
  while (expected.size() < bytes.size() - 2)
    for (const std::uint8_t sample : model.nextFrame()) expected += static_cast<char>(sample);
  EXPECT_EQ(bytes, expected + "OK");
}

TEST_F(SessionTest, KeepsTheRateOfTheStream) {
  Session session(optionsWith({"--speed", "50"}), output_);
  const Port port(link());
  port.write(start);
  const auto begin = std::chrono::steady_clock::now();
  const std::size_t bytes = readAtLeast(25 * 1024, session, port).size();
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  EXPECT_LE(static_cast<double>(bytes), seconds * 512 * 50);  // never early
  EXPECT_GE(bytes, 25 * 1024U);
}

TEST_F(SessionTest, OutlivesTheProgramsClosingAndOpening) {
  Session session(optionsWith({"--speed", "20"}), output_);
  for (int turn = 0; turn < 3; ++turn) {
    const Port port(link());
    ASSERT_EQ(answerToTest(session, port), "OK");
    port.write(start);
    EXPECT_GE(readAtLeast(1024, session, port).size(), 1024U);
    EXPECT_TRUE(stopAndReadRest(session, port).ends_with("OK"));
  }
}

// Frames with their number in the first three channels; each channel has its own range of codes.
std::string numberedFrames() {
  std::string bytes;
  for (int number = 0; number < 65536; ++number)
    for (const int code : {number % 64, 64 + number / 64 % 64, 128 + number / 4096, 255})
      bytes += static_cast<char>(code);
  return bytes;
}

// The number of a frame, or -1 if the four bytes are not a frame.
int numberOf(std::string_view bytes) {
  const auto code = [&](std::size_t at) { return static_cast<int>(static_cast<unsigned char>(bytes[at])); };
  const bool whole = code(0) < 64 && code(1) / 64 == 1 && code(2) / 16 == 8 && code(3) == 255;
  return whole ? code(0) + (code(1) - 64) * 64 + (code(2) - 128) * 4096 : -1;
}

void runUnread(Session& session, std::chrono::milliseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (std::chrono::steady_clock::now() < end) session.step(5ms);
}

TEST_F(SessionTest, LosesWholeFramesWhenNobodyReads) {
  std::ofstream(folder_ / "eeg.raw", std::ios::binary) << numberedFrames();
  Session session(optionsWith({"--speed", "1000", "--pace", "frames", "--play", (folder_ / "eeg.raw").string()}),
                  output_);
  const Port port(link());
  port.write(start);
  // Half a megabyte per second, unread: sooner or later the line is full, however busy the machine is.
  int gaps = 0, previous = -1;
  std::string bytes;
  const auto end = std::chrono::steady_clock::now() + 20s;
  while (gaps == 0 && std::chrono::steady_clock::now() < end) {
    runUnread(session, 200ms);
    bytes += port.read();
    for (; bytes.size() >= 4; bytes.erase(0, 4)) {
      const int number = numberOf(bytes.substr(0, 4));
      ASSERT_GE(number, 0) << "no whole frame behind number " << previous;
      if (number != (previous + 1) % 65536) ++gaps;
      previous = number;
    }
  }
  EXPECT_GT(gaps, 0);
}

TEST_F(SessionTest, HangsUpAndRemovesTheLinkAfterItsBlocks) {
  Session session(optionsWith({"--speed", "50", "--fault", "hang-up-after=1"}), output_);
  const Port port(link());
  port.write(start);
  EXPECT_FALSE(port.hungUp());
  const auto end = std::chrono::steady_clock::now() + 20s;
  while (session.step(5ms) && std::chrono::steady_clock::now() < end) {
  }
  EXPECT_FALSE(session.step(0ms));
  EXPECT_TRUE(port.hungUp());
  EXPECT_FALSE(port.write(stop));
  EXPECT_FALSE(fs::is_symlink(link()));
}

TEST_F(SessionTest, ComesBackUnderTheSameLinkWhenPluggedInAgain) {
  Session session(optionsWith({"--speed", "50", "--fault", "hang-up-after=1", "--replug", "0.05"}), output_);
  {
    const Port port(link());
    port.write(start);
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (fs::is_symlink(link()) && std::chrono::steady_clock::now() < end) ASSERT_TRUE(session.step(5ms));
    EXPECT_TRUE(port.hungUp());
    while (!fs::is_symlink(link()) && std::chrono::steady_clock::now() < end) ASSERT_TRUE(session.step(5ms));
  }
  const Port port(link());
  EXPECT_EQ(answerToTest(session, port), "OK");
}

TEST_F(SessionTest, WritesItsLog) {
  const fs::path log = folder_ / "log.txt";
  {
    Session session(optionsWith({"--log", log.string()}), output_);
    const Port port(link());
    ASSERT_EQ(answerToTest(session, port), "OK");
  }
  std::ifstream file(log);
  std::string readyLine, testLine, more;
  std::getline(file, readyLine);
  std::getline(file, testLine);
  EXPECT_NE(readyLine.find(" ready on /dev/pts/"), std::string::npos) << readyLine;
  EXPECT_TRUE(testLine.ends_with(" received test 54 45 53 54 c0")) << testLine;
  EXPECT_FALSE(std::getline(file, more)) << more;
}

TEST_F(SessionTest, RefusesALogItCannotWrite) {
  EXPECT_THROW(Session(optionsWith({"--log", (folder_ / "none" / "log").string()}), output_), std::runtime_error);
  EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
}

TEST_F(SessionTest, ReplacesAnOldLinkAndRemovesItsOwnAtTheEnd) {
  fs::create_directories(link().parent_path());
  fs::create_symlink("/dev/pts/none", link());
  {
    const Session session(optionsWith({}), output_);
    EXPECT_NE(fs::read_symlink(link()), "/dev/pts/none");
  }
  EXPECT_FALSE(fs::is_symlink(link()));
  EXPECT_TRUE(fs::is_empty(link().parent_path()));
}

TEST_F(SessionTest, LeavesALinkThatAnotherHasTakenOver) {
  auto first = std::make_unique<Session>(optionsWith({}), output_);
  const Session second(optionsWith({}), output_);
  const fs::path target = fs::read_symlink(link());
  first.reset();
  EXPECT_EQ(fs::read_symlink(link()), target);
}

TEST_F(SessionTest, RefusesToReplaceAFileOrAFolder) {
  fs::create_directories(link());
  EXPECT_THROW(Session(optionsWith({}), output_), std::runtime_error);
  fs::remove(link());
  std::ofstream(link()) << "data";
  try {
    const Session session(optionsWith({}), output_);
    FAIL();
  } catch (const std::runtime_error& refusal) {
    EXPECT_EQ(refusal.what(), "'" + link().string() + "' exists and is no symbolic link; it is left as it is");
  }
  EXPECT_TRUE(fs::is_regular_file(link()));
  EXPECT_EQ(fs::file_size(link()), 4U);
}

TEST_F(SessionTest, WakesForAnotherDescriptor) {
  Session session(optionsWith({}), output_);
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  ASSERT_EQ(::write(pipe[1], "x", 1), 1);
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_TRUE(session.step(60s, pipe[0]));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
  ::close(pipe[0]);
  ::close(pipe[1]);
}

}  // namespace
}  // namespace korvinel::instrument
