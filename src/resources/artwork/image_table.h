#pragma once

#include "platform/resources.h"

/// The program's pictures by id, each in several sizes.
std::span<const ImageResource> ImageTable();
