// Reading numbers out of the controller's text replies.
#ifndef CONTROLLER_REPLYTEXT_H
#define CONTROLLER_REPLYTEXT_H

/// Field `index` of `reply`, split at single blanks, as a number written in the C locale whatever
/// the desktop's locale says. Two blanks in a row make an empty field. `ok`, if not null, receives
/// whether the field is a finite number; the result is 0.0 if it is not.
double reply_number(const char* reply, int index, bool* ok = nullptr);

/// The first `count` fields into `values`. Returns false at the first that is not a finite number;
/// then `values` keeps what it held.
bool reply_numbers(const char* reply, int count, double* values);

#endif
