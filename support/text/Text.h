// Text formats and writers.
#pragma once
