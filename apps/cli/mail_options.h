#pragma once
// How the mail of a run is to be read.

#include "apps/cli/arguments.h"
#include "mailstore/mail_store.h"

namespace pelk {

/// Returns the options on the command line, with the default folders that the settings of the
/// user's mail programs name.
MailStoreOptions mailOptions(const Arguments& arguments);

}  // namespace pelk
