// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/RendererChoice.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

RendererFacts machineWith(const char* renderer)
{
    return {.hasGraphicsDevice = true, .openGlRenderer = [renderer] { return QByteArray(renderer); }};
}

TEST(RendererChoice, KnowsTheRenderersThatComputeOnTheProcessor)
{
    for (const char* const name :
         {"llvmpipe (LLVM 15.0.6, 256 bits)", "softpipe", "Software Rasterizer", "Google SwiftShader", "SWRAST"})
        EXPECT_TRUE(isSoftwareRenderer(name)) << name;
    for (const char* const name : {"Mesa Intel(R) UHD Graphics 620 (KBL GT2)", "AMD Radeon RX 580 (polaris10)",
                                   "NVIDIA GeForce GTX 1650/PCIe/SSE2", "virgl (Mesa Intel(R) HD Graphics)"})
        EXPECT_FALSE(isSoftwareRenderer(name)) << name;
}

TEST(RendererChoice, GraphicsHardwareIsUsed)
{
    EXPECT_EQ(sceneGraphFor(machineWith("Mesa Intel(R) UHD Graphics 620")), SceneGraph::platformDefault);
}

TEST(RendererChoice, ADeviceThatDrawsNothingItselfIsNone)
{
    EXPECT_EQ(sceneGraphFor(machineWith("llvmpipe (LLVM 15.0.6, 256 bits)")), SceneGraph::software);
}

TEST(RendererChoice, WithoutOpenGlItIsTheSoftwarePainter)
{
    EXPECT_EQ(sceneGraphFor(machineWith("")), SceneGraph::software);
}

TEST(RendererChoice, WhatTheUserHasChosenCounts)
{
    RendererFacts facts = machineWith("llvmpipe");
    facts.isChosenByUser = true;
    facts.isSoftwareForced = true;
    facts.hasGraphicsDevice = false;
    EXPECT_EQ(sceneGraphFor(facts), SceneGraph::platformDefault);
}

TEST(RendererChoice, OpenGlIsNotAskedWhereTheAnswerIsKnown)
{
    bool isAsked = false;
    const auto ask = [&] {
        isAsked = true;
        return QByteArray("Mesa Intel(R) UHD Graphics 620");
    };
    EXPECT_EQ(sceneGraphFor({.hasGraphicsDevice = false, .openGlRenderer = ask}), SceneGraph::software);
    EXPECT_EQ(sceneGraphFor({.isSoftwareForced = true, .hasGraphicsDevice = true, .openGlRenderer = ask}),
              SceneGraph::software);
    EXPECT_EQ(sceneGraphFor({.isChosenByUser = true, .hasGraphicsDevice = true, .openGlRenderer = ask}),
              SceneGraph::platformDefault);
    EXPECT_FALSE(isAsked);
}

}
}
