"""The parts of bench/compare."""
