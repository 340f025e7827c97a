// VndiffFixture.h - a fresh directory per test and the built vndiff run in it.
//
// Each test writes files into the directory, runs the program through the
// shell and looks at exactly what it printed and left behind.
#ifndef VN_TESTS_HOSTS_VNDIFF_VNDIFFFIXTURE_H
#define VN_TESTS_HOSTS_VNDIFF_VNDIFFFIXTURE_H

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vn {
namespace test {

struct Outcome {
  int status;
  std::string out;
  std::string err;
};

class VndiffTest : public ::testing::Test {
protected:
  void SetUp() override {
    char pattern[] = "/tmp/vndiff-test-XXXXXX";
    ASSERT_NE(nullptr, mkdtemp(pattern));
    m_dir = pattern;
  }
  void TearDown() override { system(("rm -rf '" + m_dir + "'").c_str()); }

  std::string Path(const std::string& name) const { return m_dir + "/" + name; }

  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
  }

  std::string Read(const std::string& name) const {
    std::ifstream in(Path(name), std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }

  bool Exists(const std::string& name) const {
    struct stat st;
    return stat(Path(name).c_str(), &st) == 0;
  }

  // Runs vndiff with `args` (a shell word list) from inside the directory.
  Outcome Vndiff(const std::string& args, const std::string& input = "") const {
    const std::string cmd = "cd '" + m_dir + "' && " + std::string(VNDIFF_PATH) + " " + args +
                            " > .out 2> .err < " + (input.empty() ? std::string("/dev/null") : input);
    const int raw = system(cmd.c_str());
    Outcome r;
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    r.out = Read(".out");
    r.err = Read(".err");
    return r;
  }

  static bool HavePatch() { return system("patch --version > /dev/null 2>&1") == 0; }

  std::string m_dir;
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_HOSTS_VNDIFF_VNDIFFFIXTURE_H
