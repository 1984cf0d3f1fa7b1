// Runs of the built program in which something fails, and the checks afterwards.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>

#include "naive/places.h"
#include "support/made_texts.h"
#include "support/test_folder.h"
#include "support/zip_builder.h"

namespace quorvel {
// One run of each kind.
struct Scenario {
  const char* name;
  std::string arguments;                           // with "@" for the folder
  std::vector<std::string> written = {"out.txt"};  // the files that the run writes
  bool oldExist = true;                            // these files already exist
};

inline const Scenario SCENARIOS[] = {
    {"text", "@/a.txt -o @/out.txt --index", {"out.txt", "a.qvl.ndx"}},
    {"nothing there yet", "@/b.txt --index", {"b.qvl.conc.txt", "b.qvl.ndx"}, false},
    {"page", "@/p.htm -o @/out.txt --language none"},
    {"document", "@/d.docx -o @/out.txt --language none"},
    {"from an index", "@/i.txt --use-index -o @/out.txt -q"},
    {"long text", "@/l.txt -o @/out.txt --language none"},
    {"search", "@/b.txt -k @/k.txt -e 's* lamp' -o @/out.txt"},
    {"rows", "@/b.txt --format json -e 's*' -o @/out.txt"},
    {"from settings", "-s @/s.lvz --create --language none"},
    {"settings", "@/a.txt -k @/k.txt --save-settings @/t.lvz", {"t.lvz"}}};

inline bool AllFaults() { return std::getenv("QUORVEL_ALL_FAULTS") != nullptr; }

struct Ending {
  int signal = 0;
  int status = 0;
  std::string errors;
};

inline std::ostream& operator<<(std::ostream& out, const Ending& ending) {
  return out << "signal " << ending.signal << ", status " << ending.status << "\n" << ending.errors;
}

// The program, its data and its inputs in a watched folder.
struct Desk {
  static constexpr const char* OLD = "old\r\n";

  // The library, if any, is loaded before the C library in each run.
  explicit Desk(const char* library) : library_(library) {
    for (const char* name : {"bin", "tmp"}) fs::create_directory(folder.Path(name));
    fs::copy_file(QUORVEL_CLI, folder.Path("bin/quorvel-cli"));
    // A run with all stop words takes longer and tests nothing more.
    for (const auto& file : fs::directory_iterator(QUORVEL_DATA)) {
      if (file.path().extension() != ".txt") continue;
      std::string beginning(600, ' ');
      std::ifstream(file.path()).read(beginning.data(), 600);
      beginning.resize(beginning.rfind('\n') + 1);
      (void)folder.Write("bin/" + file.path().filename().string(), beginning);
    }
    const std::string text = Repeated("The ship lay in the harbour, and a lamp was lit.\r\n", 30);
    for (const char* name : {"a.txt", "b.txt", "i.txt"}) (void)folder.Write(name, text);
    (void)folder.Write("l.txt",
                       Repeated("The silent harbour ships were lit all night long.\r\n", 1500));
    (void)folder.Write("k.txt", "harbour\r\nships\r\n");
    (void)folder.Write("p.htm", "<!DOCTYPE html><head><meta charset=utf-8></head><body><p>" + text +
                                    "caf\xC3\xA9</body>");
    (void)folder.Write("d.docx",
                       ZipArchive({{"word/document.xml", "<w:p><w:t>" + text + "</w:t></w:p>"}}));
    for (const char* arguments :
         {"@/i.txt --index", "@/a.txt -o @/out.txt --save-settings @/s.lvz"})
      EXPECT_EQ(EndOf(Start(arguments, "", "exec")).status, 0);
    fs::remove(folder.Path("i.qvl.conc.txt"));
    for (const auto& file : fs::recursive_directory_iterator(folder.Path(""))) {
      before_.insert(file.path().string());
    }
  }

  const TestFolder folder;
  // The operations of a run without faults, its exit status, and the files that it wrote.
  std::string log;
  Ending clean;
  std::map<std::string, std::string> whole;

  // Selects a scenario, and runs it once without faults.
  void Begin(const Scenario& scenario) {
    RemoveWritten();
    scenario_ = scenario;
    PutBack();
    clean = Run("");
    EXPECT_EQ(clean.status, 0) << scenario.name << clean;
    whole = Written();
    log = beside_.Read("log");
    PutBack();
  }

  // The path of the scenario's first argument.
  [[nodiscard]] std::string Input() const {
    return scenario_.arguments.substr(2, scenario_.arguments.find(' ') - 2);
  }

  // The current bytes of the files that it writes. A missing file has none.
  [[nodiscard]] std::map<std::string, std::string> Written() const {
    std::map<std::string, std::string> files;
    for (const std::string& name : scenario_.written) files[name] = folder.Read(name);
    return files;
  }

  // Runs the scenario with `fault` for the library. `before` is put before the program in a shell
  // command.
  [[nodiscard]] Ending Run(const std::string& fault, const std::string& before = "exec") const {
    return EndOf(Start(fault, before));
  }

  [[nodiscard]] pid_t Start(const std::string& fault, const std::string& before = "exec") const {
    return Start(scenario_.arguments, fault, before);
  }

  [[nodiscard]] Ending EndOf(pid_t child) const {
    int status = 0;
    ::waitpid(child, &status, 0);
    return {WIFSIGNALED(status) ? WTERMSIG(status) : 0, WEXITSTATUS(status),
            beside_.Read("errors")};
  }

  // Returns what is wrong with the written files, or an empty text if each is completely old or
  // new. `mustBeNew` if the run reported success.
  [[nodiscard]] std::string FilesComplaint(bool mustBeNew) const {
    for (const auto& [name, bytes] : whole) {
      const bool exists = fs::exists(folder.Path(name));
      const std::string found = folder.Read(name);
      if (found == bytes) {
        struct stat status = {};
        ::stat(folder.Path(name).c_str(), &status);
        const mode_t gained = scenario_.oldExist ? status.st_mode & 0777U & ~OLD_MODE : 0;
        if (gained != 0) return name + ": open to more; ";
      } else if (exists != scenario_.oldExist || (exists && found != OLD)) {
        return name + ": a mixture; ";
      } else if (mustBeNew) {
        return name + ": still the old one; ";
      }
    }
    return {};
  }

  // The files that should not exist. Some files may be left only after a kill.
  [[nodiscard]] std::string Litter(bool killed) const {
    std::string litter;
    for (const auto& file : fs::recursive_directory_iterator(folder.Path(""))) {
      const std::string path = file.path().string();
      const std::string name = path.substr(folder.Path("").size());
      if (before_.contains(path) || whole.contains(name)) continue;
      // The text of a document must never be left, however the program ends.
      const bool isEmpty = fs::is_directory(file) || fs::file_size(file) == 0;
      const bool ofAKill = (name.starts_with("tmp/QVL") && isEmpty) ||
                           (name.starts_with(".qvl") && name.ends_with(".tmp"));
      if (!killed || !ofAKill) litter += "leaves " + name + "; ";
    }
    return litter;
  }

  // Restores the folder as it was before the run.
  void PutBack() const {
    for (const auto& file : fs::directory_iterator(folder.Path("tmp"))) fs::remove_all(file);
    for (const auto& file : fs::directory_iterator(folder.Path(""))) {
      if (file.path().filename().string().starts_with(".qvl")) fs::remove(file);
    }
    RemoveWritten();
    for (const std::string& name : scenario_.written) {
      if (scenario_.oldExist) ::chmod(folder.Write(name, OLD).c_str(), OLD_MODE);
    }
  }

 private:
  static constexpr mode_t OLD_MODE = 0640;

  void RemoveWritten() const {
    for (const std::string& name : scenario_.written) fs::remove(folder.Path(name));
  }

  [[nodiscard]] pid_t Start(const std::string& arguments, const std::string& fault,
                            const std::string& before) const {
    const std::string path = folder.Path("").substr(0, folder.Path("").size() - 1);
    const std::string line = "cd '" + path + "'; " + before + " env LD_PRELOAD='" + library_ +
                             ":" QUORVEL_FIXED_CLOCK "' bin/quorvel-cli " +
                             naive::Replace(arguments, "@", path);
    fs::remove(beside_.Path("log"));
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child != 0) return child;
    // These signals may be ignored if the tests run in the background or under nohup.
    for (const int signal : {SIGHUP, SIGINT}) std::signal(signal, SIG_DFL);
    ::setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
    ::setenv("QUORVEL_FAULT_BELOW", path.c_str(), 1);
    ::setenv("QUORVEL_FAULT_LOG", beside_.Path("log").c_str(), 1);
    ::setenv("QUORVEL_FAULT", fault.c_str(), 1);
    ::setenv("TMPDIR", folder.Path("tmp").c_str(), 1);
    (void)std::freopen("/dev/null", "r", stdin);
    (void)std::freopen("/dev/null", "w", stdout);
    (void)std::freopen(beside_.Path("errors").c_str(), "w", stderr);
    ::alarm(60);  // seconds; a longer run hangs
    ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    ::_exit(127);
  }

  const std::string library_;
  Scenario scenario_ = {"none", "", {}};
  TestFolder beside_;
  std::set<std::string> before_;
};

}  // namespace quorvel
