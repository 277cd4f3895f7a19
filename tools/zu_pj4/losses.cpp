#include "losses.h"

#include "terminal.h"
#include "text/own_texts.h"
#include "text/strconv.h"

void Tlosses::tell(std::string_view definition, std::string const& where) const {
  if (mode_ == loss_mode::quiet) return;
  for (zu::reading_loss const& loss : zu::find_reading_losses(definition))
    tell_one(where + terminal::from_wide(zu::tell(loss)));
}

void Tlosses::tell(std::string_view definition,
                   std::function<bool(zu::reading_loss const&)> const& is_lost) const {
  if (mode_ == loss_mode::quiet) return;
  for (zu::reading_loss const& loss : zu::find_reading_losses(definition))
    if (is_lost(loss)) tell_one(terminal::from_wide(zu::tell(loss)));
}

void Tlosses::tell_name_taken(std::string const& name, std::string const& where) const {
  if (name.empty()) return;
  tell_one(where + terminal::from_wide(
                       zu::fill_own_text(zu::own_text::name_taken, zu::strconv::from_utf8(name))));
}

void Tlosses::tell_one(std::string const& sentence) const {
  if (mode_ == loss_mode::quiet) return;
  if (mode_ == loss_mode::refuse) throw Tloss_error(sentence);
  warn_(sentence);
}
