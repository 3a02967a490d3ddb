"""A small generator of pseudo-random numbers, the same on every version of Python."""

MASK = (1 << 64) - 1


class Dice:
    def __init__(self, seed):
        self._state = seed & MASK

    def below(self, limit):
        """0 .. limit - 1 (splitmix64)."""
        self._state = (self._state + 0x9E3779B97F4A7C15) & MASK
        mixed = self._state
        mixed = ((mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9) & MASK
        mixed = ((mixed ^ (mixed >> 27)) * 0x94D049BB133111EB) & MASK
        return (mixed ^ (mixed >> 31)) % limit

    def chance(self, percent):
        return self.below(100) < percent

    def one_of(self, items):
        return items[self.below(len(items))]

    def weighted(self, weights):
        """A key of `weights` (item -> weight)."""
        roll = self.below(sum(weights.values()))
        for item, weight in weights.items():
            roll -= weight
            if roll < 0:
                return item
        raise AssertionError("weights are exhausted")
