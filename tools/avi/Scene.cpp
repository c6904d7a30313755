// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "avi/Scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace turfdesk::avi {

namespace {

// Places are in pixels from the top left corner, times in frames.
constexpr double HoleX = 222;
constexpr double HoleY = 46;
constexpr double HoleWidth = 11.5; // half the opening
constexpr double HoleHeight = 3.6;
constexpr double BallRadius = 7;
constexpr double BallStartX = -10;
constexpr double ArrivalFrame = 27;
constexpr double FlagTop = 5;
constexpr double Horizon = 21;

struct Point {
  double x = 0;
  double y = 0;
};

Colour Blend(const Colour &from, const Colour &to, double share) {
  return {std::lerp(from.red, to.red, share), std::lerp(from.green, to.green, share),
          std::lerp(from.blue, to.blue, share)};
}

bool InEllipse(const Point &place, const Point &centre, double width, double height) {
  const double x = (place.x - centre.x) / width;
  const double y = (place.y - centre.y) / height;
  return x * x + y * y <= 1;
}

/// Where the ball is and how far it has turned at one moment.
struct Ball {
  Point centre;
  double turn = 0; // radians, clockwise
  bool falling = false;
};

Ball BallAt(double time) {
  const double restY = HoleY - BallRadius + 1;
  const double distance = HoleX - 3 - BallStartX;
  const double share = std::min(time / ArrivalFrame, 1.0);
  // It slows down on the way, yet still rolls when it reaches the hole.
  const double rolled = distance * (1.55 * share - 0.55 * share * share);
  Ball ball{{BallStartX + rolled, restY}, rolled / BallRadius, time > ArrivalFrame};
  if (ball.falling) {
    const double fallen = time - ArrivalFrame;
    ball.centre.x += std::min(fallen * 1.6, 3.5);
    ball.centre.y += 0.62 * fallen * fallen;
    ball.turn += 0.15 * fallen;
  }
  return ball;
}

// A falling ball is hidden by the turf in front of the hole.
bool HiddenByTurf(const Point &place) {
  const double across = (place.x - HoleX) / HoleWidth;
  if (std::abs(across) >= 1)
    return place.y > HoleY;
  return place.y > HoleY + HoleHeight * std::sqrt(1 - across * across);
}

Colour BallColour(const Ball &ball, const Point &place) {
  const double x = (place.x - ball.centre.x) / BallRadius;
  const double y = (place.y - ball.centre.y) / BallRadius;
  const double height = std::sqrt(std::max(0.0, 1 - x * x - y * y));
  const double light = std::clamp(0.62 - 0.30 * x - 0.46 * y + 0.34 * height, 0.0, 1.0);
  Colour colour = Blend({150, 163, 156}, {255, 255, 253}, light);
  // Dimples in a ring and one in the middle, so that the eye sees it roll.
  const double cosine = std::cos(ball.turn);
  const double sine = std::sin(ball.turn);
  const Point own = {x * cosine + y * sine, y * cosine - x * sine};
  for (int dimple = 0; dimple < 6; ++dimple) {
    const double angle = dimple * std::numbers::pi / 3;
    if (InEllipse(own, {0.58 * std::cos(angle), 0.58 * std::sin(angle)}, 0.15, 0.15))
      return Blend(colour, {112, 128, 120}, 0.5);
  }
  if (InEllipse(own, {0, 0}, 0.15, 0.15))
    return Blend(colour, {112, 128, 120}, 0.5);
  return colour;
}

Colour Meadow(const Point &place) {
  const double depth = (place.y - Horizon) / (SceneHeight - Horizon);
  const Colour grass = Blend({150, 198, 112}, {86, 152, 70}, depth);
  // Mown stripes that run towards the viewer.
  const double lane = (place.x - SceneWidth * 0.5) / (14 + 30 * depth);
  const bool light = static_cast<long>(std::floor(lane)) % 2 == 0;
  return light ? Blend(grass, {196, 226, 150}, 0.16) : grass;
}

Colour Background(const Point &place) {
  const double hills = 15.5 + 3.2 * std::sin(place.x / 31 + 0.6) + 1.6 * std::sin(place.x / 13);
  if (place.y > Horizon)
    return Meadow(place);
  if (place.y > hills)
    return {132, 176, 126};
  return Blend({176, 212, 236}, {232, 243, 246}, place.y / Horizon);
}

Colour Hole(const Point &place) {
  // The far wall of the cup catches some light.
  return Blend({70, 84, 52}, {20, 34, 20}, std::clamp((place.y - HoleY + HoleHeight) / (1.3 * HoleHeight), 0.0, 1.0));
}

bool OnStick(const Point &place) {
  return std::abs(place.x - HoleX) < 0.95 && place.y > FlagTop - 1 && place.y < HoleY + 1;
}

// The cloth waves; far from the stick it waves more.
bool OnFlag(const Point &place, double time) {
  const double right = place.x - HoleX - 0.9;
  constexpr double length = 21;
  if (right < 0 || right > length)
    return false;
  const double phase = 2 * std::numbers::pi * (time * 4 / SceneFrames - right / 17);
  const double wave = 1.7 * std::sin(phase) * right / length;
  return std::abs(place.y - (FlagTop + 6 + wave)) < 6 * (1 - 0.72 * right / length);
}

Colour FlagColour(const Point &place, double time) {
  const double right = place.x - HoleX;
  const double shade = 0.5 + 0.5 * std::cos(2 * std::numbers::pi * (time * 4 / SceneFrames - right / 17));
  return Blend({196, 44, 34}, {236, 88, 66}, shade);
}

Colour SceneAt(const Point &place, const Ball &ball, double time) {
  const bool onBall = InEllipse(place, ball.centre, BallRadius, BallRadius) && !(ball.falling && HiddenByTurf(place));
  // The ball rolls in front of the stick, which stands in the middle of the hole.
  if (onBall)
    return BallColour(ball, place);
  if (OnStick(place))
    return place.x < HoleX ? Colour{252, 249, 238} : Colour{206, 200, 182};
  if (OnFlag(place, time))
    return FlagColour(place, time);
  if (InEllipse(place, {HoleX, HoleY}, HoleWidth, HoleHeight))
    return Hole(place);
  Colour ground = Background(place);
  if (InEllipse(place, {HoleX, HoleY + 0.7}, HoleWidth + 0.8, HoleHeight + 0.5))
    ground = Blend(ground, {232, 246, 205}, 0.55);
  const Point shadow = {ball.centre.x + 4, HoleY + 1};
  if (!ball.falling && InEllipse(place, shadow, BallRadius * 1.15, 2.6))
    ground = Blend(ground, {24, 58, 26}, 0.38);
  return ground;
}

std::uint8_t Rounded(double part) { return static_cast<std::uint8_t>(std::clamp(part + 0.5, 0.0, 255.0)); }

} // namespace

Image DrawScene(int frame) {
  constexpr int grid = 5; // points per pixel and direction, averaged for smooth edges
  const Ball ball = BallAt(frame);
  Image image{SceneWidth, SceneHeight, {}};
  for (int y = 0; y < SceneHeight; ++y)
    for (int x = 0; x < SceneWidth; ++x) {
      Colour sum;
      for (int point = 0; point < grid * grid; ++point) {
        const int right = point % grid;
        const int down = point / grid;
        const Colour colour = SceneAt({x + (right + 0.5) / grid, y + (down + 0.5) / grid}, ball, frame);
        sum = {sum.red + colour.red, sum.green + colour.green, sum.blue + colour.blue};
      }
      constexpr double share = 1.0 / (grid * grid);
      image.pixels.push_back({Rounded(sum.red * share), Rounded(sum.green * share), Rounded(sum.blue * share)});
    }
  return image;
}

} // namespace turfdesk::avi
