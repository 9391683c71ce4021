<?xml version="1.0" encoding="UTF-8"?>
<TestPlan Version="3.0.0">
    <Attributes Ident="10">
        <Attribute Name="Retries" Type="Integer">3</Attribute>
        <Attribute Name="Delay" Type="Real">0.1</Attribute>
        <Attribute Name="Note" Type="String">a &lt; b &amp; &quot;Ω&quot; 	|
|</Attribute>
        <Attribute Name="Fast" Type="Boolean">true</Attribute>
        <Attribute Name="Newer" Type="42">7</Attribute>
        <Attribute Name="Nothing" Type="String"></Attribute>
        <Category Name="Relay">
            <Attribute Name="Channel" Type="Integer">-2147483648</Attribute>
            <Category Name="Empty"/>
            <Category Name="Timing">
                <Attribute Name="Settle" Type="Real">1e-300</Attribute>
            </Category>
            <Attribute Name="After" Type="Integer">1</Attribute>
        </Category>
    </Attributes>
    <Properties Ident="10">
        <Property Name="LogInReport">true</Property>
        <Property Name="Enabled">false</Property>
    </Properties>
    <Properties Ident="11">
        <Property Name="LogInReport">false</Property>
        <Property Name="Enabled">true</Property>
    </Properties>
    <Validation Ident="21" Type="8" Name="Output" Unit="V">
        <Property Name="Lower">4.75</Property>
        <Property Name="CompLower">&lt;=</Property>
        <Property Name="Upper">5.25</Property>
        <Property Name="CompUpper">&lt;</Property>
        <Property Name="InvertResult">false</Property>
        <Property Name="ScaleFactor">-3</Property>
        <Property Name="BinIdLower">11</Property>
        <Property Name="BinIdUpper">12</Property>
        <Property Name="SoftBinIdPass">21</Property>
        <Property Name="Nominal">5</Property>
    </Validation>
    <Properties Ident="21">
        <Property Name="LogInReport">true</Property>
    </Properties>
    <Validation Ident="22" Type="7" Name="Mask" Unit="hex">
        <Property Name="Lower">255</Property>
        <Property Name="CompLower">==</Property>
        <Property Name="InvertResult">false</Property>
        <Property Name="ScaleFactor">0</Property>
    </Validation>
    <Validation Ident="23" Type="9" Name="Text" Unit="">
        <Property Name="Lower">A&lt;B</Property>
        <Property Name="CompLower">==</Property>
        <Property Name="InvertResult">false</Property>
    </Validation>
    <Properties Ident="31">
        <Property Name="LogInReport">true</Property>
        <Property Name="Enabled">true</Property>
    </Properties>
</TestPlan>
