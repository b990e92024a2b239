#pragma once
// The former name of csv_table.h.
#include "csv_table.h"
