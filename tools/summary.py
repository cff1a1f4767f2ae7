#!/usr/bin/env python3
"""Counts the tests of ctest's result files, lists each skip with its reason, and closes with one line.

usage: summary.py RESULTS.xml...   Ends with 1 if a test failed, a file is missing or nothing ran; with
CI=true also when a skip is owed to a missing Debian package.
"""
import os
import re
import sys
import xml.etree.ElementTree as tree


def skip_reason(case):
    """The line that the test gave as its reason: behind GoogleTest's "Skipped", or Qt Test's SKIP."""
    output = case.findtext('system-out') or ''
    google = re.search(r': Skipped\n(.+)', output)
    qt = re.search(r'SKIP\s*: \S+ (.+)', output)
    return (google or qt).group(1).strip() if google or qt else 'no reason given'


passed, failed, skips, trouble = 0, 0, [], False
for path in sys.argv[1:]:
    if not os.path.exists(path):
        print(f'summary.py: {path} is missing: its tests did not run')
        trouble = True
        continue
    for case in tree.parse(path).getroot().iter('testcase'):
        if case.find('failure') is not None or case.get('status') == 'fail':
            failed += 1
            print('FAILED', case.get('name'))
        elif case.find('skipped') is not None or case.get('status') in ('notrun', 'disabled'):
            skips.append((case.get('name'), skip_reason(case)))
        else:
            passed += 1

for name, reason in skips:
    print(f'skipped {name}: {reason}')
if os.environ.get('CI') == 'true' and any('package' in reason for _, reason in skips):
    print('A Debian package is missing: on CI that is a failure.')
    trouble = True
print(f'{passed} passed, {failed} failed, {len(skips)} skipped')
sys.exit(1 if failed or trouble or passed == 0 else 0)
