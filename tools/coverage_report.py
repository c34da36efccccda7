#!/usr/bin/env python3
"""coverage_report.py FOLDER LINES BRANCHES < documents of gcov

Tells the lines below the folder that no test reached, and the shares of lines and branches that were; fails when they
are below these percentages. The copies that the objects have of an inline function, and the instances of a template,
count as one. Branches that only an exception takes are the compiler's and do not count.
"""
import json
import os
import sys


def spans(numbers):
    """Numbers in order, those that follow each other as 3-5."""
    parts = []
    for number in sorted(numbers):
        if parts and parts[-1][1] == number - 1:
            parts[-1][1] = number
        else:
            parts.append([number, number])
    return ', '.join(str(first) if first == last else f'{first}-{last}' for first, last in parts)


def main():
    folder = os.path.realpath(sys.argv[1]) + '/'
    limits = [float(limit) for limit in sys.argv[2:4]]
    lines, branches, thrown = {}, {}, set()
    for document in sys.stdin:
        document = json.loads(document)
        for source in document['files']:
            # As the compiler was told of it: from the folder that it ran in, or from the root.
            name = os.path.realpath(os.path.join(document['current_working_directory'], source['file']))
            if not name.startswith(folder):
                continue
            for line in source['lines']:
                place = (name[len(folder):], line['line_number'])
                lines[place] = lines.get(place, 0) + line['count']
                for number, branch in enumerate(line['branches']):
                    way = (*place, number)
                    branches[way] = branches.get(way, 0) + branch['count']
                    if branch['throw']:
                        thrown.add(way)
    missed = {}
    for (name, number), count in sorted(lines.items()):
        if count == 0:
            missed.setdefault(name, []).append(number)
    for name, numbers in missed.items():
        print(f'{name}: {spans(numbers)}')
    short = False
    counts = [list(lines.values()), [count for way, count in branches.items() if way not in thrown]]
    for what, all_counts, limit in zip(('lines', 'branches'), counts, limits):
        reached = sum(count > 0 for count in all_counts)
        share = 100 * reached / max(len(all_counts), 1)
        short = short or share < limit
        print(f'{what}: {share:.1f} % ({reached} of {len(all_counts)}), wanted: {limit:g} %')
    sys.exit(1 if short else 0)


main()
