// autofill_table: how fast the autofill engine fills grids.
//
//     autofill_table [-w LIST] [--seeds N] [--time S] [--threads N] FOLDER...
//
// Fills each grid of the folders (one row a line, "#" block, "." empty) with
// seeds 1 to N and prints the median and the longest processor time of the
// search, without loading; then the same over each set, the part of the
// file name before the first digit.  The fingerprint is a hash of the fill
// of seed 1: it may only change when the search does.

#include <sys/resource.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>

#include "autofill/autofill.h"
#include "dictionary/read_list.h"

namespace {

struct Arguments {
  std::vector<std::string> folders = {KELDA_BENCH_GRIDS};
  std::string list;
  int seeds = 5;
  autofill::Options options;
};

struct Row {
  std::string name, set, outcomes;
  std::vector<double> milliseconds;  // sorted
  std::int64_t nodes = 0, fails = 0, propagations = 0;
  std::size_t fingerprint = 0;

  double Median() const { return milliseconds[milliseconds.size() / 2]; }
};

double ProcessorSeconds() {
  timespec time;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + 1e-9 * time.tv_nsec;
}

std::string SetOf(const std::string& name) {
  const std::string set = name.substr(0, name.find_first_of("0123456789"));
  // Sizes belong to the set: "am15", "ac-21".
  std::size_t end = set.size();
  while (end < name.size() && std::isdigit(name[end])) ++end;
  return set == "lattice" || set.starts_with("theme") ? set.substr(0, 7)
                                                      : name.substr(0, end);
}

autofill::Problem ReadProblem(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::string cells;
  int height = 0;
  for (std::string row; std::getline(file, row);) {
    cells += row;
    height += !row.empty();
  }
  Document document(static_cast<int>(cells.size()) / height, height);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (cells[i] == '#')
      document.cells[i].kind = Cell::Kind::Block;
    else if (cells[i] != '.')
      document.cells[i].solution = cells[i];
  }
  return autofill::ProblemOf(document);
}

Row Measure(const std::filesystem::path& path, const WordList& words,
            const Arguments& arguments) {
  Row row{.name = path.stem().string(),
          .set = SetOf(path.stem().string()),
          .outcomes = {},
          .milliseconds = {}};
  const autofill::Problem problem = ReadProblem(path);
  autofill::Options options = arguments.options;
  for (int seed = 1; seed <= arguments.seeds; ++seed) {
    options.seed = seed;
    const double start = ProcessorSeconds();
    const autofill::Result result = autofill::Fill(problem, words, options);
    row.milliseconds.push_back((ProcessorSeconds() - start) * 1e3);
    row.outcomes += "FIS"[static_cast<int>(result.status)];
    row.nodes += result.statistics.nodes;
    row.fails += result.statistics.fails;
    row.propagations += result.statistics.propagations;
    if (seed > 1) continue;
    for (const std::string& letter : result.letters)
      row.fingerprint = row.fingerprint * 31 + std::hash<std::string>()(letter);
  }
  std::sort(row.milliseconds.begin(), row.milliseconds.end());
  return row;
}

void Print(const Row& row) {
  std::printf("%-16s %-7s %10.1f %10.1f %9ld %9ld %10ld  %08zx\n",
              row.name.c_str(), row.outcomes.c_str(), row.Median(),
              row.milliseconds.back(), static_cast<long>(row.nodes),
              static_cast<long>(row.fails), static_cast<long>(row.propagations),
              row.fingerprint & 0xffffffff);
  std::fflush(stdout);
}

void PrintSets(const std::vector<Row>& rows) {
  std::printf("\n%-16s %6s %14s %14s\n", "set", "grids", "median ms",
              "slowest ms");
  std::map<std::string, std::vector<double>> sets;
  double milliseconds = 0, propagations = 0;
  for (const Row& row : rows) {
    sets[row.set].push_back(row.Median());
    for (double time : row.milliseconds) milliseconds += time;
    propagations += static_cast<double>(row.propagations);
  }
  for (auto& [set, medians] : sets) {
    std::sort(medians.begin(), medians.end());
    std::printf("%-16s %6zu %14.1f %14.1f\n", set.c_str(), medians.size(),
                medians[medians.size() / 2], medians.back());
  }
  rusage usage;
  getrusage(RUSAGE_SELF, &usage);
  std::printf("\n%.0f propagations a second, peak memory %.0f MB\n",
              propagations / milliseconds * 1e3, usage.ru_maxrss / 1024.0);
}

int Run(const Arguments& arguments) {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point begin = Clock::now();
  WordListBuilder builder;
  ReadList(arguments.list, 0, 0, builder);
  const WordList words = builder.Build();
  const std::chrono::duration<double, std::milli> load = Clock::now() - begin;
  std::printf("%s: %d words, loaded in %.0f ms\n", arguments.list.c_str(),
              words.Count(), load.count());
  std::printf("%-16s %-7s %10s %10s %9s %9s %10s\n", "grid", "", "median ms",
              "slowest", "nodes", "fails", "propag.");
  std::vector<Row> rows;
  for (const std::string& folder : arguments.folders) {
    std::vector<std::filesystem::path> paths;
    for (const auto& file : std::filesystem::directory_iterator(folder))
      paths.push_back(file.path());
    std::sort(paths.begin(), paths.end());
    for (const auto& path : paths) {
      rows.push_back(Measure(path, words, arguments));
      Print(rows.back());
    }
  }
  if (!rows.empty()) PrintSets(rows);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Arguments arguments;
  arguments.options.threads = 1;
  CLI::App app("Measures the autofill engine.");
  app.add_option("FOLDER", arguments.folders, "Folders of grids")
      ->check(CLI::ExistingDirectory);
  app.add_option("-w", arguments.list, "Word list")
      ->required()
      ->check(CLI::ExistingFile);
  app.add_option("--seeds", arguments.seeds)->check(CLI::Range(1, 1000));
  app.add_option("--time", arguments.options.seconds);
  app.add_option("--threads", arguments.options.threads);
  CLI11_PARSE(app, argc, argv);
  try {
    return Run(arguments);
  } catch (const std::exception& error) {
    std::cerr << "autofill_table: " << error.what() << "\n";
    return 3;
  }
}
