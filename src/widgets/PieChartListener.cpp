// SPDX-License-Identifier: MIT
#include "widgets/PieChartListener.h"

namespace TES {

PieChartListener::~PieChartListener() = default;

} // namespace TES
