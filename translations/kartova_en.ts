<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="de">
<context>
    <name>CoreText</name>
    <message>
        <source>X-Position:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
