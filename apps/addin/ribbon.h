#pragma once
// The commands of the add-in as a group on the mail client's ribbon.

#include <span>
#include <string>
#include <string_view>

#include "addin/Connect.h"

namespace pelk {

/// The ribbon of the window that shows the mail; others are none of our business.
inline constexpr std::wstring_view kMailWindowRibbon = L"Microsoft.Outlook.Explorer";

/// What the ribbon calls when the user clicks a button; the button's tag is the command's.
inline constexpr const wchar_t* kRibbonCallback = L"PelkRun";

/// The description of the group.
std::string ribbonXml(std::span<const Connect::Command> commands);

}  // namespace pelk
