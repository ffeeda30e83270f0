#pragma once

namespace talvora {

class Form;

/// Whether the character ' stands in a text control of the form: one whose name begins with "txt", shown or not,
/// enabled or not. No other control is looked at. Statements are built by joining text, so windows refuse it.
bool HasQuoteInText(const Form& form);

}  // namespace talvora
