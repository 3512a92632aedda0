#pragma once
// The add-in's commands as a group on the mail client's ribbon.

#include <span>
#include <string>
#include <string_view>

#include "addin/Connect.h"

namespace pelk {

/// The ribbon of the mail window, the only one that the add-in extends.
inline constexpr std::wstring_view kMailWindowRibbon = L"Microsoft.Outlook.Explorer";

/// The callback that the ribbon calls when the user clicks a button. The button's tag is that of
/// the command.
inline constexpr const wchar_t* kRibbonCallback = L"PelkRun";

/// Returns the XML of the group.
std::string ribbonXml(std::span<const Connect::Command> commands);

}  // namespace pelk
