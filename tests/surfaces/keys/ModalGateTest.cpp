// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/ModalGate.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

constexpr bool ModalGate::*kReasons[] = {
    &ModalGate::isMenuOpen,       &ModalGate::isPopoverOpen,          &ModalGate::isSheetOpen,
    &ModalGate::isAlertOpen,      &ModalGate::isMissingMediaCardOpen, &ModalGate::isStartScreenShown,
    &ModalGate::isFileDialogOpen, &ModalGate::isWindowInactive};

ModalGate gateWith(unsigned reasons)
{
    ModalGate gate;
    for (unsigned reason = 0; reason < std::size(kReasons); ++reason)
        gate.*kReasons[reason] = ((reasons >> reason) & 1U) != 0;
    return gate;
}

constexpr unsigned kMenu = 1;
constexpr unsigned kInactive = 128;

TEST(ModalGate, KeysPassWhileNothingStandsInFront)
{
    for (unsigned reasons = 0; reasons < 256; ++reasons)
        EXPECT_EQ(gateWith(reasons).isOpen(), reasons == 0) << reasons;
}

TEST(ModalGate, MenuItemsAreDisabledByEverythingButTheirOwnMenu)
{
    for (unsigned reasons = 0; reasons < 256; ++reasons)
        EXPECT_EQ(gateWith(reasons).enablesMenuItems(), reasons == 0 || reasons == kMenu) << reasons;
}

TEST(ModalGate, DropsAreRefusedByEverythingButAnInactiveWindow)
{
    for (unsigned reasons = 0; reasons < 256; ++reasons)
        EXPECT_EQ(gateWith(reasons).acceptsDrops(), reasons == 0 || reasons == kInactive) << reasons;
}

}
}
