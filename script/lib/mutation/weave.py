"""Puts mutants into a source, each behind a switch."""
import re

from mutants import Mutant

STRING_OR_COMMENT = re.compile(r"""(L?"(?:\\.|[^"\\])*"|L?'(?:\\.|[^'\\])*')|//[^\n]*""")


def weave(text, mutants, constants=(), constexpr_functions=(), alive=None):
    """The source with all these mutants behind switches; line numbers stay. The declarations of `constants`,
    (start, end of the word, ...), are made constants of the running program, so that their mutants can be switched.
    The mutant `alive`, which is none of these, is in its place."""
    sites = {}
    for mutant in mutants:
        sites.setdefault((mutant.start, mutant.end), []).append(mutant)
    for start, end, *_ in constants:
        sites[(start, end)] = None
    if alive:
        sites = {site: ones for site, ones in sites.items()
                 if site != (alive.start, alive.end) and not (alive.start <= site[0] and site[1] <= alive.end)}
        sites[(alive.start, alive.end)] = alive
    return _Weaver(text, sites, constexpr_functions).run()


class _Weaver:
    def __init__(self, text, sites, constexpr_functions):
        self.text = text
        self.sites = sites
        self.constexpr_functions = constexpr_functions
        # The outer ones first; of two at the same place the statement, which has the semicolon.
        self.order = sorted(sites, key=lambda site: (site[0], -site[1]))
        self.next = 0

    def run(self):
        return self.inside(0, len(self.text)).encode()

    def inside(self, start, end):
        """The text from start to end with the sites that it holds."""
        out = []
        at = start
        while self.next < len(self.order) and self.order[self.next][1] <= end and self.order[self.next][0] >= start:
            site = self.order[self.next]
            self.next += 1
            out.append(self.text[at:site[0]].decode())
            out.append(self.switched(site))
            at = site[1]
        out.append(self.text[at:end].decode())
        return "".join(out)

    def switched(self, site):
        start, end = site
        mutants = self.sites[site]
        inner = self.inside(start, end)
        if isinstance(mutants, Mutant):
            return mutants.text
        if mutants is None:
            return inner.replace("constexpr", "const")
        runs = any(low <= start and end <= high for low, high in self.constexpr_functions)
        switch = "::vmk_mutation::OnAtRunTime" if runs else "::vmk_mutation::On"
        if mutants[0].form == "statement":
            return "{ if (!" + f"{switch}({mutants[0].number})) {inner} " + "}"
        truth = any(mutant.form == "truth" for mutant in mutants)
        for mutant in reversed(mutants):
            text = " ".join(STRING_OR_COMMENT.sub(lambda match: match[1] or "", mutant.text).split("\n"))
            cast = "static_cast<bool>" if truth else ""
            inner = f"({switch}({mutant.number}) ? {cast}({text}) : {cast}({inner}))"
        return inner
