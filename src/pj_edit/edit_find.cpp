#include "pj_edit/edit_find.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <memory>
#include <span>
#include <utility>

#include "basic/number.h"
#include "basic/thread.h"
#include "pj_edit/edit_note.h"
#include "text/own_texts.h"
#include "text/strconv.h"

namespace zu {
namespace {

struct Tshared {
  std::unique_ptr<Tsystem_search> search;
  std::vector<std::string> taken;  // ids, the latest first
  // The thread fills these. The list takes them when the thread says that they are ready.
  std::unique_ptr<Tsystem_search> whole;
  std::atomic<bool> is_made{false};
  Tthread thread;  // the last member: it has to end before the others are destroyed
};

// Lives as long as the process, because making the list takes time.
Tshared& shared() {
  static Tshared all;
  return all;
}

void load(void* context) {
  auto* const all = static_cast<Tshared*>(context);
  try {
    all->whole->add(list_database_systems());
    all->is_made = true;
  } catch (std::exception const&) {
    // Without enough memory the list stays short.
  }
}

std::wstring wide_number(double value) {
  return strconv::from_system(number::format_double(value, 6));
}

}  // namespace

namespace system_finder {

void start() {
  Tshared& all = shared();
  if (all.search) return;
  all.search = std::make_unique<Tsystem_search>();
  all.search->add(list_shipped_systems());
  all.whole = std::make_unique<Tsystem_search>(*all.search);
  all.thread.start(&load, &all);
}

void finish() { shared().thread.join(); }

bool has_more() {
  Tshared& all = shared();
  if (!all.is_made.exchange(false)) return false;
  all.thread.join();
  // The short list stays, because the caller still has pointers to its systems.
  std::swap(all.search, all.whole);
  return true;
}

std::vector<listed_system const*> find(std::wstring const& words, bool deprecated) {
  Tsystem_search const& search = *shared().search;
  std::vector<listed_system const*> rows;
  search_request request;
  request.words = strconv::to_utf8(words);
  request.deprecated = deprecated;
  bool const is_empty = fold_words(request.words).empty();
  if (is_empty) {
    for (std::string const& id : shared().taken) {
      auto const found = std::ranges::find(search.systems(), id, &listed_system::id);
      if (found != search.systems().end()) rows.push_back(&*found);
    }
  }
  std::size_t const before = rows.size();
  for (std::size_t const place : search.find(request, most_rows)) {
    listed_system const* const system = &search.systems()[place];
    auto const taken = std::span(rows).first(before);
    if (std::ranges::find(taken, system) == taken.end()) rows.push_back(system);
  }
  return rows;
}

void remember(listed_system const& system) {
  constexpr std::size_t most = 10;
  auto& taken = shared().taken;
  std::string const id = system.id;
  std::erase(taken, id);
  taken.insert(taken.begin(), id);
  if (taken.size() > most) taken.pop_back();
}

}  // namespace system_finder

std::wstring tell_row(listed_system const& system) {
  std::wstring row = strconv::from_utf8(system.name);
  if (system.name != system.id) row += L" \u2013 " + strconv::from_utf8(system.id);
  std::wstring const area = strconv::from_utf8(system.get_area());
  return area.empty() ? row : row + L" \u2013 " + area;
}

std::wstring tell_system(listed_system const& system, catalogue_lists const& lists,
                         std::string& definition) {
  definition = definition_of(system).value_or("");
  std::wstring text =
      definition.empty() ? get_own_text(own_text::no_definition) : strconv::from_system(definition);
  std::wstring const area = strconv::from_utf8(system.get_area());
  if (!area.empty()) text += L"\n" + area;
  if (system.box) {
    text += L"\n" + fill_own_text(
                        own_text::area_box,
                        wide_number(system.box->west) + L" ... " + wide_number(system.box->east),
                        wide_number(system.box->south) + L" ... " + wide_number(system.box->north));
  }
  if (system.is_deprecated) text.append(L"\n").append(get_own_text(own_text::deprecated));
  if (definition.empty()) return text;
  Tzu_pj_editor editor(lists);
  editor.set_proj4_string(definition.c_str());
  std::wstring const note = compose_note({}, {}, editor);
  return note.empty() ? text : text + L"\n" + note;
}

}  // namespace zu
