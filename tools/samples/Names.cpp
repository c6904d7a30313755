// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "samples/Names.h"

#include <array>
#include <span>
#include <string_view>

namespace turfdesk::samples {

namespace {

using Words = std::span<const std::string_view>;

constexpr std::array<std::string_view, 37> Landmarks = {
    "Amber",    "Badger's", "Bellwether", "Bramble", "Brønby",   "Château", "Cobble",  "Curlew", "Drover's",  "Ember",
    "Fairlop",  "Fennel",   "Gorse",      "Grey",    "Harebell", "Heron",   "Jackdaw", "Kestle", "Larkrise",  "Lindö",
    "Marigold", "Merle",    "Nettle",     "Oriel",   "Pebble",   "Plover",  "Quarry",  "Rowan",  "Saltmarsh", "Señor's",
    "Tansy",    "Thistle",  "Tarn",       "Umber",   "Vesper",   "Willow",  "Zürn"};

constexpr std::array<std::string_view, 31> Grounds = {
    "Bay",  "Bluff", "Bottom", "Combe", "Common", "Dale",   "Downs",  "Dunes",  "Edge", "Fell",  "Fields",
    "Ford", "Forêt", "Glen",   "Green", "Heath",  "Hollow", "Island", "Knoll",  "Lake", "Links", "Meadow",
    "Mere", "Moor",  "Park",   "Point", "Ridge",  "Sands",  "Valley", "Vallée", "Wold"};

constexpr std::array<std::string_view, 29> Manners = {
    "Autumn", "Bleached", "Bronze", "Coastal", "Dappled", "Dry",   "Dusty", "Evening", "Frosted", "Garden",
    "Gilded", "Hardy",    "Ivy",    "Limed",   "Mossy",   "Naïve", "Old",   "Painted", "Pale",    "Rainy",
    "Rustic", "Silver",   "Spring", "Sunlit",  "Tall",    "Tidal", "Wild",  "Windy",   "Winter"};

constexpr std::array<std::string_view, 31> Objects = {
    "Arbours", "Beeches",  "Benches", "Boathouses", "Boulders",  "Bridges", "Bushes",  "Cottages",
    "Crags",   "Étangs",   "Fences",  "Ferns",      "Gates",     "Gravels", "Grasses", "Hedges",
    "Jetties", "Lanterns", "Larches", "Oaks",       "Pavilions", "Pines",   "Reeds",   "Roses",
    "Sands",   "Stones",   "Streams", "Textures",   "Tufts",     "Walls",   "Willows"};

// The two counts have no common factor, so the pairs are all different until both have come round together.
std::string Pair(Words first, Words second, std::size_t number) {
  std::string name(first[number % first.size()]);
  name.append(" ").append(second[number % second.size()]);
  const std::size_t round = number / (first.size() * second.size());
  return round == 0 ? name : name + ' ' + std::to_string(round + 1);
}

} // namespace

std::string CourseName(std::size_t number) { return Pair(Landmarks, Grounds, number); }

std::string LibraryName(std::size_t number) { return Pair(Manners, Objects, number); }

} // namespace turfdesk::samples
