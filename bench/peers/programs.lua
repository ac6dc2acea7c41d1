-- The programs of bench/programs as people write them in Lua. Prints seconds and the result.
local function next_of(x)
    return x + 1
end

local function fib(n)
    if n < 2 then
        return n
    end
    return fib(n - 1) + fib(n - 2)
end

local programs = {
    loop = function(n)
        local i = 0
        while i < n do
            i = i + 1
        end
        return i
    end,
    call = function(n)
        local y = 0
        for i = 1, n do
            y = next_of(i)
        end
        return y
    end,
    list = function(n)
        local items = {}
        for i = 1, n do
            items[#items + 1] = i
        end
        local sum = 0
        for i = 1, #items do
            sum = sum + items[i]
        end
        return sum
    end,
    fib = fib,
}

local n = tonumber(arg[2])
local begin = os.clock()
local result = programs[arg[1]](n)
print(os.clock() - begin, result)
