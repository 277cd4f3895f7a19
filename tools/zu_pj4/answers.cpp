#include "answers.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iostream>
#include <memory>
#include <span>
#include <thread>
#include <unordered_map>
#include <utility>

namespace answers {
namespace {

constexpr std::size_t max_items = 1024;
constexpr std::size_t max_bytes = std::size_t{4} << 20U;
// Answers that are ready are shown after this time, although others are waited for.
constexpr std::chrono::milliseconds patience{50};
// A thread takes several texts at a time, because each taking has its cost. When that
// took longer than this, it takes one the next time.
constexpr std::size_t most_at_a_time = 16;
constexpr std::chrono::milliseconds long_time{1};

}  // namespace

answerer remembering(answerer wanted) {
  constexpr std::size_t max_answers = 1000;
  constexpr std::size_t max_size = 4096;
  using memory = std::unordered_map<std::string, answer>;
  return [wanted = std::move(wanted), known = std::make_shared<memory>()](std::string const& text) {
    if (auto const found = known->find(text); found != known->end()) return found->second;
    answer given = wanted(text);
    if (text.size() + given.output.size() > max_size) return given;
    if (known->size() == max_answers) known->clear();
    known->emplace(text, given);
    return given;
  };
}

unsigned default_jobs() noexcept { return std::max(1U, std::thread::hardware_concurrency()); }

Tqueue::Tqueue(unsigned jobs, std::function<answerer()> make, receiver receive)
    : make_(std::move(make)), receive_(std::move(receive)), threads_(jobs > 1 ? jobs : 0) {
  if (!threads_.empty()) context_.emplace();
}

Tqueue::~Tqueue() {
  {
    std::scoped_lock const lock(mutex_);
    stops_ = true;
  }
  added_.notify_all();
}

void Tqueue::add(std::string text, std::string where) {
  if (!has_thread()) {
    if (!own_) own_ = make_();
    receive_(own_(text), where);
    std::cout.flush();
    return;
  }
  if (is_full()) hand_over(items_.size() / 2);
  bytes_ += text.size();
  std::unique_lock lock(mutex_);
  items_.push_back({std::move(text), std::move(where), {}, nullptr, false});
  bool const is_waited_for = idle_ > 0;
  lock.unlock();
  if (is_waited_for) added_.notify_one();
}

void Tqueue::finish() {
  hand_over(0);
  std::cout.flush();
}

// Starts one more thread while all are busy. False where there is none: for one job, and
// where the system has no thread left.
bool Tqueue::has_thread() {
  if (started_ < threads_.size()) {
    std::unique_lock lock(mutex_);
    bool const are_busy = idle_ == 0;
    lock.unlock();
    if (are_busy && threads_[started_].start(&run_worker, this)) ++started_;
  }
  return started_ > 0;
}

// The other threads do not change the number of items.
bool Tqueue::is_full() const noexcept { return items_.size() >= max_items || bytes_ >= max_bytes; }

// Waits until not more than `rest` items are left.
void Tqueue::hand_over(std::size_t rest) {
  while (items_.size() > rest) {
    std::unique_lock lock(mutex_);
    wanted_ = items_.size() - rest;
    answered_.wait_for(lock, patience,
                       [this] { return failure_ || (done_ >= wanted_ && items_.front().is_done); });
    wanted_.reset();
    if (failure_) std::rethrow_exception(failure_);
    std::deque<Titem> const taken = take_done();
    lock.unlock();
    for (Titem const& item : taken) {
      if (item.failure) std::rethrow_exception(item.failure);
      receive_(item.given, item.where);
    }
    std::cout.flush();
  }
}

// Takes the answered items at the begin of the queue.
std::deque<Tqueue::Titem> Tqueue::take_done() {
  std::deque<Titem> taken;
  while (!items_.empty() && items_.front().is_done) {
    bytes_ -= items_.front().text.size();
    taken.push_back(std::move(items_.front()));
    items_.pop_front();
    --next_;
    --done_;
  }
  return taken;
}

void Tqueue::run_worker(void* context) {
  auto& queue = *static_cast<Tqueue*>(context);
  try {
    queue.run();
  } catch (...) {
    std::scoped_lock const lock(queue.mutex_);
    queue.failure_ = std::current_exception();
    queue.answered_.notify_one();
  }
}

void Tqueue::run() {
  zu::proj_library::Tthread_context const context;
  answerer const by = make_();
  bool is_slow = false;
  std::unique_lock lock(mutex_);
  while (!stops_) {
    if (next_ < items_.size()) {
      work(lock, by, is_slow);
      continue;
    }
    ++idle_;
    added_.wait(lock);
    --idle_;
  }
}

void Tqueue::work(std::unique_lock<std::mutex>& lock, answerer const& by, bool& is_slow) {
  // Takes a small part of the waiting texts, so that all threads end at about the same time.
  std::size_t const share = is_slow ? 1 : (items_.size() - next_) / (2 * threads_.size());
  std::array<Titem*, most_at_a_time> places{};
  auto const taken = std::span(places).first(std::clamp<std::size_t>(share, 1, places.size()));
  for (Titem*& place : taken) place = &items_[next_++];
  lock.unlock();
  auto const begin = std::chrono::steady_clock::now();
  for (Titem* const item : taken) {
    try {
      item->given = by(item->text);
    } catch (...) {
      item->failure = std::current_exception();
    }
  }
  is_slow = std::chrono::steady_clock::now() - begin > long_time;
  lock.lock();
  for (Titem* const item : taken) item->is_done = true;
  done_ += taken.size();
  if (wanted_ && done_ >= *wanted_ && items_.front().is_done) answered_.notify_one();
}

}  // namespace answers
