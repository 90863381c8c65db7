// The heap allocations the benchmark program has made so far (operator new replaced in it).
#pragma once

long AllocationsFaites();
