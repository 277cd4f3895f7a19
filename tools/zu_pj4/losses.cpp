#include "losses.h"

#include "proj4/reading_report.h"
#include "terminal.h"

void Tlosses::tell(std::string_view definition, std::string const& where) const {
  if (mode_ == loss_mode::quiet) return;
  for (zu::reading_loss const& loss : zu::find_reading_losses(definition))
    tell_one(where + terminal::from_wide(zu::tell(loss)));
}

void Tlosses::tell_one(std::string const& sentence) const {
  if (mode_ == loss_mode::quiet) return;
  if (mode_ == loss_mode::refuse) throw Tloss_error(sentence);
  env_->warning(sentence);
}
