#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>

#include "system/descriptor.h"
#include "system/posix_terminal.h"

namespace tallyfold {
namespace {

using std::chrono::milliseconds;

struct Pipe {
  Pipe() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    out = Descriptor(ends[0]);
    in = Descriptor(ends[1]);
  }
  void Send(std::string_view text) const {
    EXPECT_EQ(write(in.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  [[nodiscard]] std::string Received() const {
    std::array<char, 4096> bytes{};
    const ssize_t size = read(out.number(), bytes.data(), bytes.size());
    return {bytes.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
  }
  Descriptor out;
  Descriptor in;
};

class PosixTerminals : public testing::Test {
 protected:
  PollRunLoop loop_;
  TerminationSignals signals_;
};

TEST_F(PosixTerminals, ReadLinesFromAPipeWithoutAPrompt) {
  Pipe input;
  Pipe output;
  PosixTerminal terminal(loop_, signals_, {input.out.number(), output.in.number(), 2});
  EXPECT_FALSE(terminal.ReadsFromPerson());
  EXPECT_FALSE(terminal.WritesToPerson());
  loop_.CallAfter(milliseconds{0}, [] { ADD_FAILURE() << "the loop is not to be served"; });
  input.Send("one\n\ntwo\r\nlast");
  input.in = Descriptor();
  EXPECT_EQ(terminal.ReadLine("> "), "one");
  EXPECT_EQ(terminal.ReadSecret("Password: "), "");
  EXPECT_EQ(terminal.ReadLine("> "), "two\r");
  EXPECT_EQ(terminal.ReadLine("> "), "last");
  EXPECT_EQ(terminal.ReadLine("> "), std::nullopt);
  terminal.Write("answer");
  EXPECT_EQ(output.Received(), "answer");
}

TEST_F(PosixTerminals, CutLinesThatAreTooLong) {
  char name[] = "/tmp/tallyfold-lines-XXXXXX";
  const Descriptor file(mkstemp(name));
  ASSERT_TRUE(file.IsOpen());
  unlink(name);
  const std::string text = std::string(3 * Terminal::kLongestLine, 'x') + "\nshort\n";
  ASSERT_EQ(write(file.number(), text.data(), text.size()), static_cast<ssize_t>(text.size()));
  ASSERT_EQ(lseek(file.number(), 0, SEEK_SET), 0);
  PosixTerminal terminal(loop_, signals_, {file.number(), 1, 2});
  EXPECT_EQ(terminal.ReadLine("").value_or("").size(), Terminal::kLongestLine + 1);
  EXPECT_EQ(terminal.ReadLine(""), "short");
  EXPECT_EQ(terminal.ReadLine(""), std::nullopt);
}

TEST_F(PosixTerminals, EndTheInputAtATerminationSignal) {
  Pipe input;
  PosixTerminal terminal(loop_, signals_, {input.out.number(), 1, 2});
  input.Send("one\ntwo\n");
  EXPECT_EQ(terminal.ReadLine(""), "one");
  EXPECT_EQ(terminal.EndingSignal(), std::nullopt);
  ASSERT_EQ(raise(SIGTERM), 0);
  EXPECT_EQ(terminal.ReadLine(""), std::nullopt);
  EXPECT_EQ(terminal.ReadLine(""), std::nullopt);
  EXPECT_EQ(terminal.EndingSignal(), SIGTERM);
}

TEST_F(PosixTerminals, LoseWhatNobodyReads) {
  Pipe output;
  output.out = Descriptor();
  PosixTerminal terminal(loop_, signals_, {0, output.in.number(), output.in.number()});
  EXPECT_EQ(terminal.Width(), 0U);
  terminal.WriteError("lost");
  EXPECT_FALSE(terminal.HasLostOutput());
  terminal.Write("lost");
  EXPECT_TRUE(terminal.HasLostOutput());
}

TEST_F(PosixTerminals, PromptAPersonAndServeTheLoopMeanwhile) {
  const Descriptor keyboard(posix_openpt(O_RDWR | O_NOCTTY));
  ASSERT_TRUE(keyboard.IsOpen());
  ASSERT_EQ(grantpt(keyboard.number()), 0);
  ASSERT_EQ(unlockpt(keyboard.number()), 0);
  const Descriptor screen(open(ptsname(keyboard.number()), O_RDWR | O_NOCTTY));
  ASSERT_TRUE(screen.IsOpen());
  PosixTerminal terminal(loop_, signals_, {screen.number(), screen.number(), 2});
  EXPECT_TRUE(terminal.ReadsFromPerson());
  EXPECT_TRUE(terminal.WritesToPerson());
  const auto type = [&](std::string_view text) {
    EXPECT_EQ(write(keyboard.number(), text.data(), text.size()),
              static_cast<ssize_t>(text.size()));
  };
  const auto seen = [&] {
    std::array<char, 4096> bytes{};
    struct pollfd readable = {keyboard.number(), POLLIN, 0};
    if (poll(&readable, 1, 0) != 1) return std::string();
    const ssize_t size = read(keyboard.number(), bytes.data(), bytes.size());
    return std::string(bytes.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
  };

  loop_.CallAfter(milliseconds{1}, [&] { type("balances\n"); });
  EXPECT_EQ(terminal.ReadLine("> "), "balances");
  std::string all;
  for (std::string more = seen(); !more.empty(); more = seen()) all += more;
  EXPECT_NE(all.find("balances"), std::string::npos) << all;

  loop_.CallAfter(milliseconds{1}, [&] { type("secret\n"); });
  EXPECT_EQ(terminal.ReadSecret("Password: "), "secret");
  for (std::string more = seen(); !more.empty(); more = seen()) all += more;
  EXPECT_NE(all.find("> "), std::string::npos) << all;
  EXPECT_NE(all.find("Password: "), std::string::npos) << all;
  EXPECT_EQ(all.find("secret"), std::string::npos) << all;

  // An interrupt drops a line, the end of typing ends one input, a signal that ends all.
  loop_.CallAfter(milliseconds{1}, [] { raise(SIGINT); });
  EXPECT_EQ(terminal.ReadLine("> "), "");
  loop_.CallAfter(milliseconds{1}, [&] { type("\x04"); });
  EXPECT_EQ(terminal.ReadLine("> "), std::nullopt);
  EXPECT_EQ(terminal.EndingSignal(), std::nullopt);
  loop_.CallAfter(milliseconds{1}, [] { raise(SIGHUP); });
  EXPECT_EQ(terminal.ReadLine("> "), std::nullopt);
  EXPECT_EQ(terminal.EndingSignal(), SIGHUP);
}

}  // namespace
}  // namespace tallyfold
