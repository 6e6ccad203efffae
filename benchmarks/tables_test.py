#!/usr/bin/env python3
"""Tests the verdicts of the tables and that every goal has its reason."""

import unittest

import goals
import measuring
from goals import Goal
from tables import Table, compared, fastest, times

SECONDS = {("a", "limit"): 1.0, ("a", "kelplib"): 1.5, ("a", "other"): 1.2}


def seconds(key, library):
    return SECONDS.get((key, library))


def all_goals(value):
    if isinstance(value, Goal):
        return [value]
    return [goal for each in value.values() for goal in all_goals(each)] if isinstance(value, dict) else []


class Verdicts(unittest.TestCase):
    def test_the_goal_itself_is_reached(self):
        table = Table("title", "text", [""])
        self.assertEqual(table.judge(1.5, Goal(1.5, "Why."), times), "at most x1.50: reached")
        self.assertEqual(table.all_remarks(), [])

    def test_a_missed_goal_gives_its_reason_once(self):
        table = Table("title", "text", [""])
        for _ in range(2):
            self.assertEqual(table.judge(1.6, Goal(1.5, "Why."), times), "at most x1.50: **missed**")
        self.assertEqual(table.all_remarks(), ["Why goals are missed: Why."])

    def test_a_table_of_times(self):
        table = compared("title", "text", {"A": "a"}, "limit", ["other", "none"], {"A": Goal(1.4, "Slow.")}, seconds)
        self.assertEqual(table.lines, [["limit: limit", "1 s"], ["**kelplib**", "1.5 s (x1.50)"],
                                       ["goal", "at most x1.40: **missed**"], ["other", "1.2 s (x1.20)"], ["none", "–"]])
        self.assertIn("Why goals are missed: Slow.", table.markdown())

    def test_a_faster_library_is_named(self):
        table = Table("title", "text", [""])
        fastest(table, ["A"], ["a"], ["other", "none"], seconds, "every other", "Why.")
        self.assertEqual(table.all_remarks(), ["Goal: faster than every other at A: **missed** (other at A).",
                                               "Why goals are missed: Why."])


class Goals(unittest.TestCase):
    def test_every_goal_has_a_sentence(self):
        found = [goal for value in vars(goals).values() for goal in all_goals(value)]
        self.assertGreater(len(found), 20)
        for goal in found:
            self.assertRegex(goal.why, r"^[A-Za-z].*\.$")


class Names(unittest.TestCase):
    def test_the_kind_of_time_is_not_part_of_the_name(self):
        measured = measuring.Measured(measuring.QUICK)
        entry = {"aggregate_name": "median", "time_unit": "us", "cpu_time": 1, "real_time": 2}
        measured._take([{**entry, "name": "", "run_name": name} for name in ("cpu", "wall/real_time", "prepared/manual_time")])
        self.assertEqual({name: round(figure.seconds * 1e6) for name, figure in measured.items()},
                         {"cpu": 1, "wall": 2, "prepared": 2})


if __name__ == "__main__":
    unittest.main()
