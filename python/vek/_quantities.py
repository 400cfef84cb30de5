"""Quantities of pint, which is not needed for anything else."""


def registry_of(values):
    """Units for values some of which are quantities; None when none is."""
    for value in values:
        if hasattr(value, "_REGISTRY"):
            return Units(value._REGISTRY)
    return None


class Units:
    """Takes quantities to the units of a call and back."""

    def __init__(self, registry):
        self._registry = registry

    def _unit(self, property, si):
        return self._registry.Unit(property.si_unit if si else property.unit)

    def magnitudes(self, given, sides, si):
        """Values without units; those that had none are in the unit of the call already."""
        return [value.to(self._unit(side.property, si)).magnitude
                if hasattr(value, "_REGISTRY") else value
                for value, side in zip(given, sides)]

    def quantities(self, results, wanted, si):
        """Results with their units; what comes behind those of properties is left as it is."""
        return (*(self._registry.Quantity(result, self._unit(property, si))
                  for result, property in zip(results, wanted)), *results[len(wanted):])
