// Compares the search for systems while a user types with a query by LIKE for the same words
// in PROJ's database.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "basic/str.h"
#include "finder/system_search.h"
#include "proj4/proj_library.h"
#include "ratio.h"

namespace {

// The texts of the search line, one after the other.
std::vector<std::string> const& keystrokes() {
  static std::vector<std::string> const texts = [] {
    std::vector<std::string> all;
    for (std::string_view const typed :
         {"utm zone 37", "pulkovo 1995 gk", "lambert france", "tyumen 3", "28407"})
      for (std::size_t size = 1; size <= typed.size(); ++size)
        all.emplace_back(typed.substr(0, size));
    return all;
  }();
  return texts;
}

constexpr std::size_t most_rows = 200;

void search(benchmark::State& state) {
  zu::Tsystem_search all;
  all.add(zu::list_shipped_systems());
  all.add(zu::list_database_systems());
  std::size_t found = 0;
  zu::search_request request;
  for ([[maybe_unused]] auto _ : state)
    for (std::string const& text : keystrokes()) {
      request.words = text;
      found += all.find(request, most_rows).size();
    }
  if (all.systems().size() < 5000 || found == 0) state.SkipWithError("nothing to search");
  state.counters["per keystroke"] = benchmark::Counter(
      static_cast<double>(keystrokes().size()),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

struct Tclose {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Tdatabase = std::unique_ptr<sqlite3, Tclose>;
using Tstatement = std::unique_ptr<sqlite3_stmt, Tclose>;

Tdatabase open_database() {
  zu::proj_library::context const context = zu::proj_library::make_context();
  sqlite3* database = nullptr;
  sqlite3_open_v2(proj_context_get_database_path(context.get()), &database, SQLITE_OPEN_READONLY,
                  nullptr);
  return Tdatabase(database);
}

Tstatement prepare(sqlite3* database, std::size_t words) {
  std::string query =
      "SELECT c.auth_name, c.code, c.name, e.description FROM crs_view c"
      " LEFT JOIN usage u ON u.object_table_name = c.table_name"
      "  AND u.object_auth_name = c.auth_name AND u.object_code = c.code"
      " LEFT JOIN extent e ON e.auth_name = u.extent_auth_name AND e.code = u.extent_code"
      " WHERE c.deprecated = 0 AND c.type IN ('projected', 'geographic 2D')";
  for (std::size_t i = 1; i <= words; ++i) {
    std::string const word = "?" + std::to_string(i);
    query.append(" AND (c.name LIKE ").append(word).append(" OR c.code LIKE ").append(word);
    query.append(" OR e.description LIKE ").append(word).append(")");
  }
  query.append(" LIMIT ").append(std::to_string(most_rows));
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr);
  return Tstatement(statement);
}

void search_by_like(benchmark::State& state) {
  Tdatabase const database = open_database();
  std::vector<Tstatement> statements;
  for (std::size_t words = 1; words <= 3; ++words)
    statements.push_back(prepare(database.get(), words));
  std::size_t found = 0;
  for ([[maybe_unused]] auto _ : state)
    for (std::string const& text : keystrokes()) {
      std::vector<std::string> patterns;
      for (std::string_view const word : zu::str::split(text, " "))
        if (!word.empty()) patterns.push_back("%" + std::string(word) + "%");
      sqlite3_stmt* const statement = statements.at(patterns.size() - 1).get();
      for (std::size_t i = 0; i < patterns.size(); ++i)
        sqlite3_bind_text(statement, static_cast<int>(i) + 1, patterns[i].c_str(), -1,
                          SQLITE_STATIC);
      while (sqlite3_step(statement) == SQLITE_ROW) ++found;
      sqlite3_reset(statement);
    }
  if (found == 0) state.SkipWithError("nothing was found");
}

constexpr int repetitions = 9;
BENCHMARK(search)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);
BENCHMARK(search_by_like)->Repetitions(repetitions)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  return bench::run(argc, argv, {{"search", "search_by_like", "at most 0.1"}});
}
