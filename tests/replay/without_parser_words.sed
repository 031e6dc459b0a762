# Removes the XML library's own words from the end of a refusal, because each version uses others.
s/(This file is (empty|damaged at line [0-9]+, column [0-9]+)\. Export the XML from Final Cut again\.|This file is not XML\. Choose a file that Final Cut has exported as XML\.) \(([^"\\]|\\.)*\)"/\1"/g
